#include <QApplication>
#include <QFileDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "desktop_window_fixture.h"
#include "qt/open_file_dialog_text.h"

namespace wavforge::qt {
namespace {

using namespace std::string_literals;

TEST(DialogTextTest, FilterPairsBecomeFiltersAndAnEmptyPartEndsTheList) {
  EXPECT_EQ(NameFiltersFromFilterList("Wave files\0*.wav; *.WAV\0All\0*\0\0B\0*.b\0"s),
            QStringList({"Wave files (*.wav *.WAV)", "All (*)"}));
}

// The dialog's answer is the folder all files share, then their names below it.
TEST(DialogTextTest, FilesBecomeFolderAndNames) {
  const std::pair<QStringList, std::string> cases[] = {
      {{"/rec/a b.wav"}, "/rec/a b.wav\0\0"s},
      {{"/rec/x/a.wav", "/rec/y/b.wav"}, "/rec\0x/a.wav\0y/b.wav\0\0"s},
      {{"/rec/ab/a.wav", "/rec/abc/b.wav"}, "/rec\0ab/a.wav\0abc/b.wav\0\0"s},
  };
  for (const auto& [files, answer] : cases) EXPECT_EQ(DialogAnswer(files), answer) << answer;
}

// The real dialog, answered the way a user would: names typed into it, then confirmed.
class FileDialogWindowTest : public DesktopWindowTest {
 protected:
  // Types the text into the next dialog that opens and confirms it, or cancels it.
  void AnswerNextDialog(const QString& typed, bool confirm) {
    QTimer::singleShot(0, [this, typed, confirm] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (!dialog) {
        ADD_FAILURE() << "no dialog";
        return;
      }
      seen_title = dialog->windowTitle();
      seen_folder = dialog->directory().absolutePath();
      seen_filters = dialog->nameFilters();
      seen_name = dialog->selectedFiles();
      if (!confirm) {
        dialog->reject();
        return;
      }
      dialog->selectFile(typed);
      // Confirming as the user does: the dialog checks the typed names before it closes.
      QMetaObject::invokeMethod(dialog, "accept");
    });
  }

  QString seen_title, seen_folder;
  QStringList seen_filters, seen_name;
};

TEST_F(FileDialogWindowTest, ChosenFilesReplaceTheSelection) {
  WriteSettings("English");
  const auto folder = TempFolder() / "Larkspur";
  for (const char* name : {"one.wav", "two.wav"}) testing_support::WriteFile(folder / name, "x");
  Open();
  program->file_list.Replace({"/earlier.wav"});
  AnswerNextDialog(QStringLiteral("\"one.wav\" \"two.wav\""), true);
  QTest::mouseClick(static_cast<QPushButton*>(Widget("cmdSelectFile")), Qt::LeftButton);
  EXPECT_EQ(seen_title.toStdString(), "Select WAV recordings");
  EXPECT_EQ(seen_folder.toStdString(), folder.string());
  EXPECT_EQ(seen_name.join(u' ').toStdString(), "");
  EXPECT_EQ(seen_filters, QStringList({"Wave files (*.wav) (*.wav)", "All files (*) (*)"}));
  EXPECT_EQ(program->file_list.Items(), (std::vector<std::string>{(folder / "one.wav").string(),
                                                                  (folder / "two.wav").string()}));
}

TEST_F(FileDialogWindowTest, WithoutItsFolderItOpensWhereItWouldAndCancelKeepsTheSelection) {
  WriteSettings("English");
  Open();
  ASSERT_FALSE(std::filesystem::exists(TempFolder() / "Larkspur"));
  const QString toolkit_folder = QFileDialog().directory().absolutePath();
  program->file_list.Replace({"/earlier.wav"});
  AnswerNextDialog({}, false);
  QTest::mouseClick(static_cast<QPushButton*>(Widget("cmdSelectFile")), Qt::LeftButton);
  EXPECT_EQ(seen_folder.toStdString(), toolkit_folder.toStdString());
  EXPECT_EQ(seen_name.join(u' ').toStdString(), "");
  EXPECT_EQ(program->file_list.Items(), std::vector<std::string>{"/earlier.wav"});
}

}  // namespace
}  // namespace wavforge::qt
