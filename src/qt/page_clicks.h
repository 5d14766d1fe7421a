#pragma once

#include <QObject>
#include <functional>
#include <utility>

namespace wavforge::qt {

// The object a page's click listeners report to through the web channel of the program's own
// script world: which snapshot, which element of it, and its checked state after the click.
class PageClicks final : public QObject {
  Q_OBJECT

 public:
  using Handler = std::function<void(int generation, int index, bool checked)>;
  PageClicks(Handler handler, QObject* parent) : QObject(parent), handler_(std::move(handler)) {}

  Q_INVOKABLE void clicked(int generation, int index, bool checked);

 private:
  Handler handler_;
};

}  // namespace wavforge::qt
