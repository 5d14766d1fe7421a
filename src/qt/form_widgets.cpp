#include "qt/form_widgets.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

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

void WrappingCheckBox::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const QString text = option.text;
  option.text.clear();
  QRect box = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
  box.moveTop((height() - box.height()) / 2);
  option.rect = box;
  painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, option);

  const int spacing = style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, &option, this);
  const QRect area(box.right() + 1 + spacing, 0, width() - box.right() - 1 - spacing, height());
  const int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  QRect drawn;
  painter.drawText(area, flags, text, &drawn);
  if (hasFocus()) {
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = drawn.adjusted(-1, 0, 1, 0);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
  }
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
