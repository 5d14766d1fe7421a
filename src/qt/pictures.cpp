#include "qt/pictures.h"

#include <QPixmapCache>

// Resources of a static library are registered by hand, outside any namespace.
static void RegisterPictures() {
  Q_INIT_RESOURCE(pictures);
}

namespace wavforge::qt {
namespace {

QString PicturePath(const std::string& name) {
  static const bool registered = (RegisterPictures(), true);
  (void)registered;
  return QStringLiteral(":/pictures/") + QString::fromStdString(name) + QStringLiteral(".png");
}

}  // namespace

QPixmap Picture(const std::string& name) {
  if (name.empty()) return {};
  const QString path = PicturePath(name);
  QPixmap pixmap;
  if (!QPixmapCache::find(path, &pixmap)) {
    pixmap.load(path);
    QPixmapCache::insert(path, pixmap);
  }
  return pixmap;
}

QIcon WindowIcon() {
  return QIcon(Picture("window_icon"));
}

QCursor LinkCursor() {
  // The finger tip is the hot spot.
  return QCursor(Picture("link_pointer"), 12, 1);
}

}  // namespace wavforge::qt
