#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <string_view>
#include <vector>

#include "assistant/browser_control.h"
#include "platform/user_interface.h"
#include "ui/form.h"

namespace wavforge::qt {

// Shows a toolkit-free form as a window of absolutely placed widgets and turns what the user
// does into the form's events. After every event and timer tick the widgets are set anew from
// the form's properties, which stay the one truth about what the window shows.
class FormWindow final : public QWidget {
 public:
  // Makes the widget that shows a web browser control, and the browser behind it.
  using BrowserMaker = std::function<std::pair<QWidget*, BrowserControl*>(QWidget* parent)>;

  // ui gives the screen's twips per pixel, the unit the form's positions are in.
  FormWindow(Form& form, const platform::UserInterface& ui, BrowserMaker make_browser = {});
  ~FormWindow() override;

  // Runs the form's load handler and shows the window when the form made itself visible.
  void LoadForm();
  // Sets every widget from the form.
  void Sync();
  // Brings the window to the front and gives it the focus, as a second start asks.
  void Activate();
  // Shows the outcome of an event on every form window: a page of one window may change the
  // controls of another. Closes this window when its form unloaded itself.
  void AfterEvent();
  // Called once the window has closed.
  void OnClosed(std::function<void()> handler) { on_closed_ = std::move(handler); }
  // Called once, when the window has been painted for the first time.
  void OnFirstPaint(std::function<void()> handler) { on_first_paint_ = std::move(handler); }

  // The widget that shows a control; nullptr for timers and unknown names.
  QWidget* WidgetOf(std::string_view name, int index = -1) const;
  // The toolkit timer that drives a timer control.
  QTimer* TimerOf(std::string_view name) const;
  Form& GetForm() { return form_; }
  const std::string& FormName() const { return form_.Name(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Item {
    Control* control;
    QWidget* widget = nullptr;
    QTimer* timer = nullptr;
  };

  void Build();
  void SyncItem(const Item& item);
  void SyncStacking();
  void SyncGeometry();
  void CarryOutRequests();
  // The window's frame around its inner area, in pixels.
  QSize FrameExtra() const;
  void Drop(Control* target, QDropEvent* event);
  // Whether the window itself takes a drop at this point: not where a control lies.
  bool TakesDropAt(QPoint position) const;
  bool HandleKey(QObject* watched, QKeyEvent* event);
  int Pixels(double twips, bool horizontal) const;
  QRect PixelRect(const Control& control) const;
  const Item* ItemOf(const QObject* object) const;

  Form& form_;
  const platform::UserInterface& ui_;
  std::vector<Item> items_;
  std::vector<QWidget*> stacking_;
  bool loaded_ = false;
  bool painted_ = false;
  QSize design_frame_;
  std::function<void()> on_first_paint_;
  std::function<void()> on_closed_;
  BrowserMaker make_browser_;
  // The form's frame position and size as last put on the screen or read from it, in twips.
  struct Bounds {
    double left, top, width, height;
    bool operator==(const Bounds&) const = default;
  } placed_{};
};

}  // namespace wavforge::qt
