#include "qt/form_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <utility>

#include "qt/form_widgets.h"
#include "qt/key_codes.h"
#include "qt/pictures.h"
#include "qt/screen_fonts.h"

namespace wavforge::qt {
namespace {

QString ToQt(const std::string& text) {
  return QString::fromStdString(text);
}

// The local file names a drop carries, in its order; none for text and other data.
// Every form window of the program, in the order they were made.
std::vector<FormWindow*>& AllWindows() {
  static std::vector<FormWindow*> windows;
  return windows;
}

std::vector<std::string> DroppedFiles(const QMimeData* data) {
  std::vector<std::string> files;
  if (!data || !data->hasUrls()) return files;
  for (const QUrl& url : data->urls()) {
    if (url.isLocalFile()) files.push_back(QFile::encodeName(url.toLocalFile()).toStdString());
  }
  return files;
}

}  // namespace

FormWindow::FormWindow(Form& form, const platform::UserInterface& ui, BrowserMaker make_browser)
    : form_(form),
      ui_(ui),
      make_browser_(std::move(make_browser)),
      placed_{form.Left, form.Top, form.Width, form.Height} {
  design_frame_ = QSize(Pixels(form.Width - form.ScaleWidth, true),
                        Pixels(form.Height - form.ScaleHeight, false));
  setWindowIcon(WindowIcon());
  Build();
  if (form_.Sizable) resize(Pixels(form_.ScaleWidth, true), Pixels(form_.ScaleHeight, false));
  // One filter on the application, none on the controls: it sees each event once for each
  // widget the event reaches, including whatever widget inside a control has the focus.
  qApp->installEventFilter(this);
  AllWindows().push_back(this);
}

FormWindow::~FormWindow() {
  std::erase(AllWindows(), this);
  qApp->removeEventFilter(this);
}

void FormWindow::Build() {
  for (const auto& owned : form_.Controls()) {
    Control& control = *owned;
    Item item{&control};
    QWidget* parent = this;
    if (!control.Container.empty()) {
      if (QWidget* container = WidgetOf(control.Container)) parent = container;
    }
    switch (control.Kind()) {
      case ControlKind::kPictureBox:
      case ControlKind::kImage: {
        auto* picture = new PictureWidget(parent);
        if (control.Kind() == ControlKind::kPictureBox && control.BorderStyle != 0) {
          picture->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        }
        item.widget = picture;
        break;
      }
      case ControlKind::kLabel: {
        auto* label = new QLabel(parent);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->setTextFormat(Qt::PlainText);
        if (control.LinkPointer) {
          QPalette palette = label->palette();
          palette.setColor(QPalette::WindowText, palette.color(QPalette::Link));
          label->setPalette(palette);
        }
        item.widget = label;
        break;
      }
      case ControlKind::kTextBox: {
        auto* edit = new QLineEdit(parent);
        edit->setReadOnly(control.Locked);
        edit->setFrame(control.BorderStyle != 0);
        if (control.BorderStyle == 0 && control.Locked) {
          // A locked box without a border reads as a line of text on the window.
          QPalette palette = edit->palette();
          palette.setColor(QPalette::Base, palette.color(QPalette::Window));
          edit->setPalette(palette);
          edit->setFocusPolicy(Qt::NoFocus);
          edit->setTextMargins(0, 0, 0, 0);
        }
        QObject::connect(edit, &QLineEdit::textEdited, this, [this, &control](const QString& text) {
          control.Text = text.toStdString();
          form_.Change(control);
          AfterEvent();
        });
        item.widget = edit;
        break;
      }
      case ControlKind::kCommandButton: {
        auto* button = new QPushButton(parent);
        button->setAutoDefault(false);
        QObject::connect(button, &QPushButton::clicked, this, [this, &control] {
          form_.Click(control);
          AfterEvent();
        });
        item.widget = button;
        break;
      }
      case ControlKind::kCheckBox: {
        auto* box = new WrappingCheckBox(parent);
        QObject::connect(box, &QCheckBox::clicked, this, [this, &control](bool checked) {
          control.Value = checked ? 1 : 0;
          form_.Click(control);
          AfterEvent();
        });
        item.widget = box;
        break;
      }
      case ControlKind::kLine:
        item.widget = new LineWidget(parent);
        break;
      case ControlKind::kTimer: {
        item.timer = new QTimer(this);
        item.timer->setTimerType(Qt::CoarseTimer);
        QObject::connect(item.timer, &QTimer::timeout, this, [this, &control] {
          form_.Timer(control);
          AfterEvent();
        });
        break;
      }
      case ControlKind::kBrowser:
        if (make_browser_) {
          auto [widget, browser] = make_browser_(parent);
          control.Browser = browser;
          item.widget = widget;
        }
        break;
      default:
        // Kinds this window does not show keep their place in the form only.
        break;
    }
    if (item.widget && control.AcceptsDrops) item.widget->setAcceptDrops(true);
    items_.push_back(item);
  }
}

void FormWindow::LoadForm() {
  form_.Load();
  loaded_ = true;
  Sync();
  if (form_.Visible) show();
}

int FormWindow::Pixels(double twips, bool horizontal) const {
  const double per_pixel = horizontal ? ui_.TwipsPerPixelX() : ui_.TwipsPerPixelY();
  return static_cast<int>(std::lround(twips / per_pixel));
}

QRect FormWindow::PixelRect(const Control& control) const {
  return QRect(Pixels(control.Left.value_or(0), true), Pixels(control.Top.value_or(0), false),
               Pixels(control.Width.value_or(0), true), Pixels(control.Height.value_or(0), false));
}

void FormWindow::Sync() {
  const QString title = ToQt(form_.Caption);
  if (windowTitle() != title) setWindowTitle(title);
  const QFont font = ScreenFont(form_.Font);
  if (this->font() != font) setFont(font);
  if (!form_.Sizable) {
    const QSize size(Pixels(form_.ScaleWidth, true), Pixels(form_.ScaleHeight, false));
    if (this->size() != size || minimumSize() != size) setFixedSize(size);
  }
  SyncGeometry();
  setAcceptDrops(form_.AcceptsDrops);
  for (const Item& item : items_) SyncItem(item);
  SyncStacking();
}

void FormWindow::SyncItem(const Item& item) {
  const Control& control = *item.control;
  if (item.timer) {
    const int interval = control.Interval.value_or(0);
    if (item.timer->interval() != interval) item.timer->setInterval(interval);
    const bool run = loaded_ && control.Enabled && interval > 0;
    if (run && !item.timer->isActive()) item.timer->start();
    if (!run && item.timer->isActive()) item.timer->stop();
    return;
  }
  QWidget* widget = item.widget;
  if (!widget) return;

  if (control.Kind() == ControlKind::kLine) {
    const int x1 = Pixels(control.X1.value_or(0), true), x2 = Pixels(control.X2.value_or(0), true);
    const int y1 = Pixels(control.Y1.value_or(0), false),
              y2 = Pixels(control.Y2.value_or(0), false);
    const QPoint origin(std::min(x1, x2), std::min(y1, y2));
    const QRect rect(origin, QSize(std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1));
    if (widget->geometry() != rect) widget->setGeometry(rect);
    static_cast<LineWidget*>(widget)->SetLine(QPoint(x1, y1) - origin, QPoint(x2, y2) - origin,
                                              QColor(ToQt(control.Color)));
  } else {
    const QRect rect = PixelRect(control);
    if (widget->geometry() != rect) widget->setGeometry(rect);
  }
  if (control.Font) {
    const QFont font = ScreenFont(*control.Font);
    if (widget->font() != font) widget->setFont(font);
  }
  const QString tip = ToQt(control.ToolTipText.value_or(""));
  if (widget->toolTip() != tip) widget->setToolTip(tip);
  if (widget->isEnabled() != control.Enabled) widget->setEnabled(control.Enabled);
  if (control.LinkPointer) widget->setCursor(LinkCursor());

  if (auto* label = qobject_cast<QLabel*>(widget)) {
    const QString text = ToQt(control.Caption.value_or(""));
    if (label->text() != text) label->setText(text);
  } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
    const QString text = ToQt(control.Caption.value_or(""));
    if (button->text() != text) button->setText(text);
    const QString picture = ToQt(control.Picture.value_or(""));
    if (button->property("picture").toString() != picture) {
      button->setProperty("picture", picture);
      button->setIcon(picture.isEmpty() ? QIcon() : QIcon(Picture(control.Picture.value_or(""))));
    }
  } else if (auto* box = qobject_cast<QCheckBox*>(widget)) {
    const QString text = ToQt(control.Caption.value_or(""));
    if (box->text() != text) box->setText(text);
    const bool checked = control.Value.value_or(0) == 1;
    if (box->isChecked() != checked) box->setChecked(checked);
  } else if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
    const QString text = ToQt(control.Text.value_or(""));
    if (edit->text() != text) {
      edit->setText(text);
      edit->setCursorPosition(0);
    }
  } else if (auto* picture = dynamic_cast<PictureWidget*>(widget)) {
    picture->SetPicture(control.Picture.value_or(""));
  }
  if (widget->isVisibleTo(this) != control.Visible) widget->setVisible(control.Visible);
}

void FormWindow::SyncStacking() {
  std::vector<const Item*> order;
  for (const Item& item : items_) {
    if (item.widget) order.push_back(&item);
  }
  std::stable_sort(order.begin(), order.end(), [](const Item* a, const Item* b) {
    return a->control->ZOrder < b->control->ZOrder;
  });
  std::vector<QWidget*> stacking;
  for (const Item* item : order) stacking.push_back(item->widget);
  if (stacking == stacking_) return;
  stacking_ = stacking;
  for (QWidget* widget : stacking_) widget->raise();
}

void FormWindow::AfterEvent() {
  // A copy: closing a window may end another's life later, never during this walk.
  const std::vector<FormWindow*> windows = AllWindows();
  for (FormWindow* window : windows) {
    window->Sync();
    if (!window->loaded_) continue;
    if (window->form_.Visible && !window->isVisible()) window->show();
    window->CarryOutRequests();
  }
  if (loaded_ && !form_.Visible && isVisible()) close();
}

QSize FormWindow::FrameExtra() const {
  if (isVisible()) return frameGeometry().size() - geometry().size();
  // Before the window manager has framed the window: the frame the form was designed with.
  return design_frame_;
}

void FormWindow::SyncGeometry() {
  const Bounds wanted{form_.Left, form_.Top, form_.Width, form_.Height};
  if (wanted == placed_) return;
  const Bounds was = std::exchange(placed_, wanted);
  if (isMinimized() || isMaximized()) return;
  // Only what the form changed: the window manager places a window nobody placed.
  if (wanted.left != was.left || wanted.top != was.top) {
    move(Pixels(wanted.left, true), Pixels(wanted.top, false));
  }
  if (form_.Sizable && (wanted.width != was.width || wanted.height != was.height)) {
    const QSize frame = FrameExtra();
    resize(Pixels(wanted.width, true) - frame.width(),
           Pixels(wanted.height, false) - frame.height());
  }
}

void FormWindow::CarryOutRequests() {
  if (const bool on_top = windowFlags().testFlag(Qt::WindowStaysOnTopHint);
      on_top != form_.TopMost) {
    const bool shown = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, form_.TopMost);
    if (shown) show();
  }
  if (Control* control = std::exchange(form_.FocusRequested, nullptr)) {
    for (const Item& item : items_) {
      if (item.control != control || !item.widget) continue;
      activateWindow();
      item.widget->setFocus(Qt::OtherFocusReason);
    }
  }
  if (std::exchange(form_.ActivateRequested, false) && isVisible()) {
    if (isMinimized()) showNormal();
    raise();
    activateWindow();
  }
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  const QRect frame = frameGeometry();
  form_.Left = frame.left() * ui_.TwipsPerPixelX();
  form_.Top = frame.top() * ui_.TwipsPerPixelY();
  placed_.left = form_.Left;
  placed_.top = form_.Top;
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const QSize frame = FrameExtra();
  form_.Width = (width() + frame.width()) * ui_.TwipsPerPixelX();
  form_.Height = (height() + frame.height()) * ui_.TwipsPerPixelY();
  placed_.width = form_.Width;
  placed_.height = form_.Height;
  if (!form_.Sizable) return;
  form_.ScaleWidth = width() * ui_.TwipsPerPixelX();
  form_.ScaleHeight = height() * ui_.TwipsPerPixelY();
  if (!loaded_) return;
  form_.Resize();
  Sync();
}

void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  form_.WindowState = isMinimized() ? 1 : isMaximized() ? 2 : 0;
  if (!loaded_) return;
  form_.Resize();
  Sync();
}

void FormWindow::Activate() {
  if (isMinimized()) showNormal();
  show();
  raise();
  activateWindow();
}

QWidget* FormWindow::WidgetOf(std::string_view name, int index) const {
  const Control* control = form_.Find(name, index);
  for (const Item& item : items_) {
    if (item.control == control) return item.widget;
  }
  return nullptr;
}

QTimer* FormWindow::TimerOf(std::string_view name) const {
  const Control* control = form_.Find(name);
  for (const Item& item : items_) {
    if (item.control == control) return item.timer;
  }
  return nullptr;
}

const FormWindow::Item* FormWindow::ItemOf(const QObject* object) const {
  for (const Item& item : items_) {
    if (item.widget == object) return &item;
  }
  return nullptr;
}

bool FormWindow::HandleKey(QObject* watched, QKeyEvent* event) {
  // The window sees the key first, once: where it is delivered first, to the focused control
  // or, when none has the focus, to the window itself.
  QWidget* focus = QApplication::focusWidget();
  QObject* first = focus && focus->window() == this ? static_cast<QObject*>(focus) : this;
  if (watched != first || !form_.KeyPreview) return false;
  int key = ClassicKeyCode(*event);
  if (key == 0) return false;
  form_.KeyDown(key, ClassicShiftState(event->modifiers()));
  AfterEvent();
  return key == 0;
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      return HandleKey(watched, static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonRelease: {
      const Item* item = ItemOf(watched);
      if (!item || item->control->Kind() == ControlKind::kCommandButton ||
          item->control->Kind() == ControlKind::kCheckBox) {
        return false;
      }
      const auto* mouse = static_cast<QMouseEvent*>(event);
      if (mouse->button() == Qt::LeftButton &&
          item->widget->rect().contains(mouse->position().toPoint()) && item->widget->isEnabled()) {
        form_.Click(*item->control);
        AfterEvent();
      }
      return false;
    }
    case QEvent::DragEnter:
    case QEvent::DragMove: {
      const Item* item = ItemOf(watched);
      if (!item || !item->control->AcceptsDrops) return false;
      // Any data is taken; what holds no file names only beeps.
      static_cast<QDropEvent*>(event)->acceptProposedAction();
      return true;
    }
    case QEvent::Drop: {
      const Item* item = ItemOf(watched);
      if (!item || !item->control->AcceptsDrops) return false;
      Drop(item->control, static_cast<QDropEvent*>(event));
      return true;
    }
    default:
      return false;
  }
}

void FormWindow::Drop(Control* target, QDropEvent* event) {
  event->acceptProposedAction();
  form_.DragDrop(target, DroppedFiles(event->mimeData()));
  AfterEvent();
}

bool FormWindow::TakesDropAt(QPoint position) const {
  // Qt hands a drag over a control that takes no drops on to the window, which takes only
  // what lands on its own free area.
  for (const QWidget* widget = childAt(position); widget && widget != this;
       widget = widget->parentWidget()) {
    if (ItemOf(widget)) return false;
  }
  return form_.AcceptsDrops;
}

void FormWindow::dragEnterEvent(QDragEnterEvent* event) {
  dragMoveEvent(event);
}

void FormWindow::dragMoveEvent(QDragMoveEvent* event) {
  if (TakesDropAt(event->position().toPoint())) {
    event->acceptProposedAction();
  } else {
    event->ignore();
  }
}

void FormWindow::dropEvent(QDropEvent* event) {
  if (TakesDropAt(event->position().toPoint())) {
    Drop(nullptr, event);
  } else {
    event->ignore();
  }
}

void FormWindow::closeEvent(QCloseEvent* event) {
  // The close box unloads the form; a form that unloaded itself is only closed.
  if (form_.Visible) {
    form_.Unload();
    form_.Visible = false;
  }
  for (const Item& item : items_) {
    if (item.timer) item.timer->stop();
  }
  event->accept();
  if (on_closed_) QTimer::singleShot(0, this, on_closed_);
}

void FormWindow::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  if (painted_) return;
  painted_ = true;
  if (on_first_paint_) QTimer::singleShot(0, this, on_first_paint_);
}

}  // namespace wavforge::qt
