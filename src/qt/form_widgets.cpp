#include "qt/form_widgets.h"

#include <QPainter>

#include "qt/pictures.h"

namespace wavforge::qt {

void PictureWidget::SetPicture(const std::string& name) {
  if (name == name_) return;
  name_ = name;
  pixmap_ = Picture(name);
  update();
}

void PictureWidget::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  if (pixmap_.isNull()) return;
  QPainter painter(this);
  painter.drawPixmap(contentsRect().topLeft(), pixmap_);
}

void LineWidget::SetLine(QPoint from, QPoint to, const QColor& color) {
  if (from == from_ && to == to_ && color == color_) return;
  from_ = from;
  to_ = to;
  color_ = color;
  update();
}

void LineWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(QPen(color_, 1));
  painter.drawLine(from_, to_);
}

}  // namespace wavforge::qt
