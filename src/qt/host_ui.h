#pragma once

#include <QFrame>
#include <QObject>
#include <QPoint>

#include "assistant/html_document.h"

class QWebEngineView;

namespace wavforge::qt {

// Puts a page's document host handler into effect on a browser: the frame around the view, the
// context menu and the keys the engine would act on by itself. With no handler: a sunken
// frame, the engine's context menu and its keys.
class HostUi final : public QObject {
 public:
  HostUi(QFrame& frame, QWebEngineView& view);
  // The handler must outlive its use; nullptr restores the defaults.
  void Use(DocHostUIHandler* handler);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowContextMenu(const QPoint& position);

  QFrame& frame_;
  QWebEngineView& view_;
  DocHostUIHandler* handler_ = nullptr;
};

}  // namespace wavforge::qt
