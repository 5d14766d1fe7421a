#include "qt/qt_user_interface.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>

#include "qt/form_window.h"
#include "qt/open_file_dialog_text.h"
#include "qt/pictures.h"

namespace wavforge::qt {
namespace {

constexpr double kTwipsPerInch = 1440.0;

QMessageBox::Icon IconOf(int style) {
  switch (style & 0x70) {
    case 16:
      return QMessageBox::Critical;
    case 32:
      return QMessageBox::Question;
    case 48:
      return QMessageBox::Warning;
    case 64:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

QMessageBox::StandardButtons ButtonsOf(int style) {
  switch (style & 0x7) {
    case 1:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case 2:
      return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    case 3:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case 4:
      return QMessageBox::Yes | QMessageBox::No;
    case 5:
      return QMessageBox::Retry | QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

QCursor CursorOf(int code) {
  switch (code) {
    case platform::kCrossPointer:
      return Qt::CrossCursor;
    case platform::kIBeamPointer:
      return Qt::IBeamCursor;
    case platform::kSizeAllPointer:
    case platform::kSizeAll2Pointer:
      return Qt::SizeAllCursor;
    case platform::kSizeNeSwPointer:
      return Qt::SizeBDiagCursor;
    case platform::kSizeNsPointer:
      return Qt::SizeVerCursor;
    case platform::kSizeNwSePointer:
      return Qt::SizeFDiagCursor;
    case platform::kSizeWePointer:
      return Qt::SizeHorCursor;
    case platform::kUpArrowPointer:
      return Qt::UpArrowCursor;
    case platform::kHourglassPointer:
      return Qt::WaitCursor;
    case platform::kNoDropPointer:
      return Qt::ForbiddenCursor;
    case platform::kArrowHourglassPointer:
      return Qt::BusyCursor;
    case platform::kArrowQuestionPointer:
      return Qt::WhatsThisCursor;
    case platform::kCustomPointer:
      return LinkCursor();
    default:
      return Qt::ArrowCursor;
  }
}

double LogicalDpi(bool horizontal) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return 96.0;
  const double dpi = horizontal ? screen->logicalDotsPerInchX() : screen->logicalDotsPerInchY();
  return dpi > 0 ? dpi : 96.0;
}

}  // namespace

void QtUserInterface::MessageBox(const std::string& text, int style, const std::string& title) {
  QMessageBox box(IconOf(style), QString::fromStdString(title), QString::fromStdString(text),
                  ButtonsOf(style), owner_);
  box.exec();
}

bool QtUserInterface::AskYesNo(const std::string& text, int style, const std::string& title) {
  QMessageBox box(IconOf(style), QString::fromStdString(title), QString::fromStdString(text),
                  QMessageBox::Yes | QMessageBox::No, owner_);
  return box.exec() == QMessageBox::Yes;
}

void QtUserInterface::Beep() {
  QApplication::beep();
}

void QtUserInterface::SetMousePointer(int code) {
  pointer_ = code;
  // One override at most: the default gives each widget its own pointer back.
  if (code == platform::kDefaultPointer) {
    if (override_set_) QGuiApplication::restoreOverrideCursor();
    override_set_ = false;
  } else if (override_set_) {
    QGuiApplication::changeOverrideCursor(CursorOf(code));
  } else {
    QGuiApplication::setOverrideCursor(CursorOf(code));
    override_set_ = true;
  }
}

bool QtUserInterface::GetOpenFileName(const platform::OpenFileRequest& request,
                                      std::string& answer) {
  QFileDialog dialog(owner_, QString::fromStdString(request.title));
  // Given a folder that is not there, the dialog would open its parent with the missing name
  // typed in; it starts where it would by itself instead, with no name.
  const QString folder = QString::fromStdString(request.initial_folder);
  if (QFileInfo(folder).isDir()) dialog.setDirectory(folder);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  const bool several = (request.flags & platform::kOfnAllowMultiSelect) != 0;
  const bool must_exist = (request.flags & platform::kOfnFileMustExist) != 0;
  dialog.setFileMode(several      ? QFileDialog::ExistingFiles
                     : must_exist ? QFileDialog::ExistingFile
                                  : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::ReadOnly, false);
  dialog.setOption(QFileDialog::HideNameFilterDetails, true);
  const QStringList filters = NameFiltersFromFilterList(request.filter);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    const auto index = static_cast<qsizetype>(request.filter_index) - 1;
    if (index >= 0 && index < filters.size()) dialog.selectNameFilter(filters[index]);
  }
  if (dialog.exec() != QDialog::Accepted) return false;
  std::string text = DialogAnswer(dialog.selectedFiles());
  // Like a full buffer: a selection that does not fit makes the dialog fail.
  if (request.buffer_size > 0 && text.size() > request.buffer_size) return false;
  answer = std::move(text);
  return true;
}

double QtUserInterface::TwipsPerPixelX() const {
  return kTwipsPerInch / LogicalDpi(true);
}

double QtUserInterface::TwipsPerPixelY() const {
  return kTwipsPerInch / LogicalDpi(false);
}

platform::ScreenRect QtUserInterface::WorkArea() const {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return {};
  const QRect area = screen->availableGeometry();
  return {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
}

std::string QtUserInterface::ForegroundWindowName() const {
  const auto* window = dynamic_cast<const FormWindow*>(QApplication::activeWindow());
  return window ? window->FormName() : std::string();
}

}  // namespace wavforge::qt
