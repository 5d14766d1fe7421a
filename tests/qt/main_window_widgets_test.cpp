#include <signal.h>
#include <unistd.h>

#include <QCheckBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <filesystem>

#include "desktop_window_fixture.h"
#include "platform/posix/console_title.h"
#include "qt/form_widgets.h"
#include "qt/pictures.h"
#include "support/sleeping_processes.h"

namespace wavforge::qt {
namespace {

// Drags this data onto a point of a widget (its middle unless given) and drops it there, as the
// window system does: through the window, which finds the widget. False when it was refused.
bool DropOn(QWidget* widget, std::unique_ptr<QMimeData> data, QPoint point = {}) {
  const QPoint at =
      widget->mapTo(widget->window(), point.isNull() ? widget->rect().center() : point);
  QWindow* window = widget->window()->windowHandle();
  QDragEnterEvent enter(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window, &enter);
  QDragMoveEvent move(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window, &move);
  QDropEvent drop(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window, &drop);
  return move.isAccepted();
}

std::unique_ptr<QMimeData> FilesData(const std::vector<std::string>& paths) {
  auto data = std::make_unique<QMimeData>();
  QList<QUrl> urls;
  for (const auto& path : paths) urls.push_back(QUrl::fromLocalFile(QString::fromStdString(path)));
  data->setUrls(urls);
  return data;
}

bool ShowsPicture(QWidget* widget, const std::string& name) {
  auto* picture = dynamic_cast<PictureWidget*>(widget);
  return picture && picture->Pixmap().toImage() == Picture(name).toImage();
}

struct LanguageCase {
  const char* language;
  const char* title;
  const char* select;
  const char* del_temp;
};

class WindowTextsTest : public DesktopWindowTest,
                        public ::testing::WithParamInterface<LanguageCase> {};

TEST_P(WindowTextsTest, TheWindowShowsTheFormInItsLanguageAtItsPixelSize) {
  WriteSettings(GetParam().language);
  FormWindow& shown = Open();
  EXPECT_TRUE(shown.isVisible());
  EXPECT_EQ(shown.windowTitle().toStdString(), GetParam().title);
  auto* select = static_cast<QPushButton*>(Widget("cmdSelectFile"));
  EXPECT_EQ(select->text().toStdString(), GetParam().select);
  EXPECT_FALSE(select->toolTip().isEmpty());
  EXPECT_EQ(static_cast<QCheckBox*>(Widget("chkDelTemp"))->text().toStdString(),
            GetParam().del_temp);
  // Whatever the screen's density, the layout and its fonts keep the screen pixels they have at
  // 120 dots per inch (ctest runs this at 96, 120 and 144).
  const qreal ratio = shown.devicePixelRatioF();
  EXPECT_EQ(shown.width() * ratio, 607);
  EXPECT_EQ(shown.height() * ratio, 432);
  EXPECT_EQ(Widget("lblHomePage")->fontInfo().pixelSize() * ratio, 15);
  EXPECT_EQ(Widget("cmdStart")->geometry(), QRect(375, 290, 161, 26));
  EXPECT_EQ(Widget("imgIcon", 0)->geometry(), QRect(80, 40, 32, 32));
  EXPECT_FALSE(Widget("imgIcon", 1)->isVisible());
  EXPECT_EQ(static_cast<QLineEdit*>(Widget("txtlblF1"))->text().toStdString(),
            "Help = F1 \xE2\x80\xA2 Assistant = F2");
  EXPECT_EQ(window->TimerOf("tmrStillWorking")->interval(), 250);
  EXPECT_TRUE(window->TimerOf("tmrStillWorking")->isActive());
}

INSTANTIATE_TEST_SUITE_P(
    Languages, WindowTextsTest,
    ::testing::Values(LanguageCase{"English", "wavforge \xC2\xB7 Larkspur \xC2\xB7 Offline Encoder",
                                   "Select file(s)", "Delete temporary files after encoding"},
                      LanguageCase{"German", "wavforge \xC2\xB7 Larkspur \xC2\xB7 Offline-Encoder",
                                   "Datei(en) w\xC3\xA4hlen",
                                   "Tempor\xC3\xA4re Dateien nach dem Umwandeln l\xC3\xB6schen"}));

TEST_F(DesktopWindowTest, StartWithNothingSelectedOnlyBeeps) {
  WriteSettings("English");
  Open();
  auto* start = static_cast<QPushButton*>(Widget("cmdStart"));
  // Disabled at first: a click does nothing at all.
  QTest::mouseClick(start, Qt::LeftButton);
  EXPECT_EQ(ui.beeps, 0);

  DropOn(Widget("picOptions"), FilesData({(Home() / "Band - Song.wav").string()}));
  Tick();
  ASSERT_TRUE(start->isEnabled());
  QTest::mouseClick(start, Qt::LeftButton);
  EXPECT_EQ(processes.scripts.size(), 1u);
  EXPECT_EQ(program->file_list.UpperBound(), -1);
  // Until the next tick Start is still enabled, and with nothing selected it only beeps.
  ASSERT_TRUE(start->isEnabled());
  QTest::mouseClick(start, Qt::LeftButton);
  EXPECT_EQ(ui.beeps, 1);
  EXPECT_EQ(processes.scripts.size(), 1u);
  Tick();
  EXPECT_FALSE(start->isEnabled());
}

struct SelectionCase {
  const char* name;
  const char* target;  // nullptr: the window itself; "": the command line
  int index;
};

class SelectionTest : public DesktopWindowTest,
                      public ::testing::WithParamInterface<SelectionCase> {};

TEST_P(SelectionTest, FilesReplaceTheSelectionAndStartFollowsOnTheNextTick) {
  WriteSettings("English");
  const std::string a = (Home() / "My Song.wav").string();
  const std::string b = (Home() / "b.wav").string();
  const bool command_line = GetParam().target && !*GetParam().target;
  Open(command_line ? "\"" + a + "\" " + b : "");
  if (!command_line) {
    program->file_list.Replace({"/earlier.wav"});
    QWidget* target =
        GetParam().target ? Widget(GetParam().target, GetParam().index) : window.get();
    // The window itself shows only at its edge, beside the panel.
    const QPoint point = GetParam().target ? QPoint() : window->rect().bottomRight();
    EXPECT_TRUE(DropOn(target, FilesData({a, b}), point));
  }
  EXPECT_EQ(program->file_list.Items(), (std::vector<std::string>{a, b})) << GetParam().name;
  EXPECT_FALSE(Widget("cmdStart")->isEnabled()) << GetParam().name;
  Tick();
  EXPECT_TRUE(Widget("cmdStart")->isEnabled()) << GetParam().name;
  EXPECT_EQ(ui.beeps, 0);
}

INSTANTIATE_TEST_SUITE_P(Ways, SelectionTest,
                         ::testing::Values(SelectionCase{"command line", "", -1},
                                           SelectionCase{"window", nullptr, -1},
                                           SelectionCase{"panel", "picOptions", -1},
                                           SelectionCase{"about line", "Label1", 33},
                                           SelectionCase{"notice", "Label1", 6},
                                           SelectionCase{"status icon", "imgIcon", 0}));

class RefusedDropTest : public DesktopWindowTest,
                        public ::testing::WithParamInterface<const char*> {};

TEST_P(RefusedDropTest, ControlsThatTakeNoFilesRefuseThemAndKeepTheSelection) {
  WriteSettings("English");
  Open();
  program->file_list.Replace({"/earlier.wav"});
  EXPECT_FALSE(DropOn(Widget(GetParam()), FilesData({(Home() / "a.wav").string()})));
  EXPECT_EQ(program->file_list.Items(), std::vector<std::string>{"/earlier.wav"});
  EXPECT_EQ(ui.beeps, 0);
}

INSTANTIATE_TEST_SUITE_P(Controls, RefusedDropTest,
                         ::testing::Values("cmdStart", "cmdStop", "cmdSelectFile", "chkDelTemp"));

struct LinkCase {
  const char* name;
  int index;
  const char* address_key;
};

class LinkTest : public DesktopWindowTest, public ::testing::WithParamInterface<LinkCase> {};

TEST_P(LinkTest, AClickOpensItsAddressOnce) {
  WriteSettings("English");
  Open();
  QTest::mouseClick(Widget(GetParam().name, GetParam().index), Qt::LeftButton);
  ASSERT_EQ(processes.shell.size(), 1u) << GetParam().name;
  EXPECT_EQ(processes.shell[0].file, program->language.Get().FormatMsg(GetParam().address_key));
}

INSTANTIATE_TEST_SUITE_P(Links, LinkTest,
                         ::testing::Values(LinkCase{"lblHomePage", -1, "homepage"},
                                           LinkCase{"lblMailTo", -1, "email"},
                                           LinkCase{"imgIcon", 0, "homepage"}));

TEST_F(DesktopWindowTest, DroppingTextBeepsAndKeepsTheSelection) {
  WriteSettings("English");
  Open();
  program->file_list.Replace({"/earlier.wav"});
  auto data = std::make_unique<QMimeData>();
  data->setText(QStringLiteral("just some words"));
  DropOn(Widget("Label1", 33), std::move(data));
  EXPECT_EQ(ui.beeps, 1);
  EXPECT_EQ(program->file_list.Items(), std::vector<std::string>{"/earlier.wav"});
}

TEST_F(DesktopWindowTest, HelpKeysNeverReachTheFocusedControl) {
  WriteSettings("English");
  Open();
  QWidget* focused = Widget("cmdSelectFile");
  window->activateWindow();
  focused->setFocus();
  ASSERT_EQ(QApplication::focusWidget(), focused);
  struct KeyCounter : QObject {
    std::vector<int> keys;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::KeyPress) keys.push_back(static_cast<QKeyEvent*>(event)->key());
      return false;
    }
  } counter;
  focused->installEventFilter(&counter);
  for (const auto& [key, modifiers] :
       std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>>{{Qt::Key_F1, Qt::NoModifier},
                                                              {Qt::Key_F1, Qt::AltModifier},
                                                              {Qt::Key_F2, Qt::NoModifier},
                                                              {Qt::Key_F3, Qt::ShiftModifier},
                                                              {Qt::Key_F12, Qt::NoModifier},
                                                              {Qt::Key_F4, Qt::NoModifier},
                                                              {Qt::Key_A, Qt::NoModifier}}) {
    QTest::keyClick(focused, key, modifiers);
  }
  // The modifier keys themselves pass too, as pressed before their function keys.
  EXPECT_EQ(counter.keys, (std::vector<int>{Qt::Key_Alt, Qt::Key_Shift, Qt::Key_F4, Qt::Key_A}));
  focused->removeEventFilter(&counter);
}

TEST_F(DesktopWindowTest, TheBoxSetsTheDeleteChoiceForThisRun) {
  WriteSettings("English", "DelTemp=1\n");
  Open();
  auto* box = static_cast<QCheckBox*>(Widget("chkDelTemp"));
  ASSERT_TRUE(box->isChecked());
  QTest::mouseClick(box, Qt::LeftButton);
  EXPECT_FALSE(program->settings.DelTemp);
  EXPECT_EQ(form->Find("chkDelTemp")->Value, 0);
  // The whole box takes the click, its wrapped text too.
  QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(box->width() - 4, 2));
  EXPECT_TRUE(program->settings.DelTemp);
  // The settings file keeps what it said.
  EXPECT_NE(testing_support::ReadFile(ConfigHome() / "Larkspur" / "Larkspur.ini").find("DelTemp=1"),
            std::string::npos);
}

// A copy of sleep named like the interpreter, with the script's console title, stands for a
// running job.
class RunningJobTest : public DesktopWindowTest {
 protected:
  std::unique_ptr<testing_support::SleepingProcesses> StartJob() {
    auto job = std::make_unique<testing_support::SleepingProcesses>(TempFolder() / "tools",
                                                                    "wavforge-cmd", 1);
    EXPECT_TRUE(platform::posix::PublishConsoleTitle(job->Pid(0), "Larkspur Encoder"));
    return job;
  }
};

TEST_F(RunningJobTest, ARunningJobAnimatesTheIconAndKeepsStartDisabled) {
  WriteSettings("English");
  Open("", /*real_windows=*/true);
  program->file_list.Replace({(Home() / "a.wav").string()});
  QWidget* icon = Widget("imgIcon", 0);
  EXPECT_TRUE(ShowsPicture(icon, "status0"));

  auto job = StartJob();
  for (const char* frame : {"status2", "status3", "status4", "status1", "status2"}) {
    Tick();
    EXPECT_TRUE(ShowsPicture(icon, frame)) << frame;
    EXPECT_FALSE(Widget("cmdStart")->isEnabled()) << frame;
  }
  job->Stop();
  Tick();
  EXPECT_TRUE(ShowsPicture(icon, "status3"));
  EXPECT_TRUE(Widget("cmdStart")->isEnabled());
}

TEST_F(RunningJobTest, ClosingDeletesTheBatchFilesAndLeavesTheJobRunning) {
  WriteSettings("English");
  const auto temp = TempFolder();
  for (const char* name : {"Larkspur101010.bat", "other.BAT", "keep.txt", "keep.bat.txt"}) {
    testing_support::WriteFile(temp / name, "x");
  }
  Open("", /*real_windows=*/true);
  auto job = StartJob();
  Tick();
  ASSERT_FALSE(Widget("cmdStart")->isEnabled());

  QTest::mouseClick(static_cast<QPushButton*>(Widget("cmdStop")), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(window->TimerOf("tmrStillWorking")->isActive());
  std::vector<std::string> left;
  for (const auto& entry : std::filesystem::directory_iterator(temp)) {
    if (entry.is_regular_file()) left.push_back(entry.path().filename().string());
  }
  std::sort(left.begin(), left.end());
  EXPECT_EQ(left, (std::vector<std::string>{"keep.bat.txt", "keep.txt"}));
  EXPECT_EQ(kill(job->Pid(0), 0), 0);
}

TEST_F(DesktopWindowTest, TheCloseBoxUnloadsLikeStop) {
  WriteSettings("English");
  testing_support::WriteFile(TempFolder() / "job.bat", "x");
  Open();
  window->close();
  EXPECT_TRUE(form->Unloaded());
  EXPECT_FALSE(std::filesystem::exists(TempFolder() / "job.bat"));
}

}  // namespace
}  // namespace wavforge::qt
