#include "qt/page_clicks.h"

namespace wavforge::qt {

void PageClicks::clicked(int generation, int index, bool checked) {
  handler_(generation, index, checked);
}

}  // namespace wavforge::qt
