#include "qt/host_ui.h"

#include <QChildEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QWebEngineView>

#include "qt/key_codes.h"

namespace wavforge::qt {
namespace {

// The keys Qt WebEngine runs a command of its own for: the editing shortcuts. Keys that
// browsers bind to history, reload, print, find and zoom (Alt+Left, F5, Ctrl+P, Ctrl+F,
// Ctrl+plus, ...) have no command in the engine; the page sees them, and they come back to
// the browser's parent as unhandled keys.
bool IsEngineAccelerator(const QKeyEvent& key) {
  for (const auto command : {QKeySequence::Cut, QKeySequence::Copy, QKeySequence::Paste,
                             QKeySequence::Undo, QKeySequence::Redo, QKeySequence::SelectAll}) {
    if (key.matches(command)) return true;
  }
  return false;
}

}  // namespace

HostUi::HostUi(QFrame& frame, QWebEngineView& view) : QObject(&frame), frame_(frame), view_(view) {
  view_.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&view_, &QWidget::customContextMenuRequested, this, &HostUi::ShowContextMenu);
  // Keys reach the widget the view shows the page in, which the view makes when it needs one.
  view_.installEventFilter(this);
  for (QWidget* child : view_.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    child->installEventFilter(this);
  }
  Use(nullptr);
}

void HostUi::Use(DocHostUIHandler* handler) {
  handler_ = handler;
  unsigned flags = 0;
  const bool borderless = handler && handler->GetHostInfo(flags) == DocHostUIHandler::kOk &&
                          (flags & DocHostUIHandler::kNo3DBorder) != 0;
  frame_.setFrameStyle(borderless ? QFrame::NoFrame : QFrame::StyledPanel | QFrame::Sunken);
}

void HostUi::ShowContextMenu(const QPoint& position) {
  if (handler_ && handler_->ShowContextMenu() == DocHostUIHandler::kOk) return;
  QMenu* menu = view_.createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->popup(view_.mapToGlobal(position));
}

bool HostUi::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &view_ && event->type() == QEvent::ChildAdded) {
    QObject* child = static_cast<QChildEvent*>(event)->child();
    if (child->isWidgetType()) child->installEventFilter(this);
    return false;
  }
  if (event->type() != QEvent::KeyPress || !handler_) return false;
  // The window's own key handling has seen the key already: it filters the whole application.
  const auto& key = *static_cast<QKeyEvent*>(event);
  return IsEngineAccelerator(key) &&
         handler_->TranslateAccelerator(ClassicKeyCode(key), ClassicShiftState(key.modifiers())) ==
             DocHostUIHandler::kOk;
}

}  // namespace wavforge::qt
