#pragma once

#include <QCheckBox>
#include <QColor>
#include <QFrame>
#include <QPixmap>
#include <QWidget>
#include <string>

namespace wavforge::qt {

// A picture box or an image: its picture at its own size in the top-left corner, nothing
// where there is none.
class PictureWidget final : public QFrame {
 public:
  explicit PictureWidget(QWidget* parent) : QFrame(parent) {}
  void SetPicture(const std::string& name);
  const std::string& PictureName() const { return name_; }
  const QPixmap& Pixmap() const { return pixmap_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::string name_;
  QPixmap pixmap_;
};

// A check box whose text wraps onto further lines within its width, its box centred in its
// height, and which takes clicks anywhere on it, as the classic check box did.
class WrappingCheckBox final : public QCheckBox {
 public:
  explicit WrappingCheckBox(QWidget* parent) : QCheckBox(parent) {}

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};

// A line between two points, given in the widget's own coordinates.
class LineWidget final : public QWidget {
 public:
  explicit LineWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }
  void SetLine(QPoint from, QPoint to, const QColor& color);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPoint from_, to_;
  QColor color_;
};

}  // namespace wavforge::qt
