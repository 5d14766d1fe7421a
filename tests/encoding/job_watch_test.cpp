#include "encoding/job_watch.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "encoding/script_cleanup.h"
#include "fakes/fake_window_search.h"
#include "platform/posix/posix_file_system.h"
#include "support/isolated_home.h"

namespace wavforge {
namespace {

class RecordingView final : public JobStatusView {
 public:
  std::vector<int> pictures;
  bool start_enabled = false;
  void SetStartEnabled(bool enabled) override { start_enabled = enabled; }
  void ShowStatusPicture(int index) override { pictures.push_back(index); }
};

class JobWatchTest : public ::testing::Test {
 protected:
  bool Tick() { return watch.Tick(files, view); }

  fakes::FakeWindowSearch windows;
  JobWatch watch{windows};
  RecordingView view;
  FileList files{{"/rec/a.wav"}};
};

TEST_F(JobWatchTest, AnimatesFromPictureTwoAndIdlesOnPictureThree) {
  windows.titles = {"lame"};
  for (int i = 0; i < 5; ++i) Tick();
  windows.titles.clear();
  Tick();
  windows.titles = {"oggenc"};
  Tick();
  EXPECT_EQ(view.pictures, (std::vector<int>{2, 3, 4, 1, 2, 3, 2}));
}

TEST_F(JobWatchTest, EnablesStartOneTickAfterTheLastWindowWhenFilesAreSelected) {
  windows.titles = {"Larkspur Encoder", "lame"};
  Tick();
  EXPECT_FALSE(view.start_enabled);
  windows.titles = {"Larkspur Encoder"};
  Tick();
  EXPECT_FALSE(view.start_enabled);
  windows.titles.clear();
  Tick();
  EXPECT_TRUE(view.start_enabled);
  files.Clear();
  Tick();
  EXPECT_FALSE(view.start_enabled);
  // Every tick looks for every title, the tools' and the script's console.
  EXPECT_EQ(windows.searches, 4);
  EXPECT_EQ(windows.asked,
            (std::vector<std::string>{"ssrc", "lame", "oggenc", "cscript", "Larkspur Encoder"}));
}

class CleanupTest : public testing_support::IsolatedHomeTest {};

TEST_F(CleanupTest, DeletesEveryBatchFileOfTheTempFolderOnly) {
  Settings settings;
  settings.TempPath = TempFolder().string();
  for (const char* name : {"Larkspur140510.bat", "other.BAT", "keep.wav", "keep.bat.txt", ".bat"}) {
    testing_support::WriteFile(TempFolder() / name, "x");
  }
  testing_support::WriteFile(TempFolder() / "sub" / "inner.bat", "x");
  platform::posix::PosixFileSystem files;
  DeleteBatchFiles(settings, files);
  std::vector<std::string> left;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(TempFolder())) {
    if (entry.is_regular_file()) left.push_back(entry.path().filename().string());
  }
  std::sort(left.begin(), left.end());
  EXPECT_EQ(left, (std::vector<std::string>{"inner.bat", "keep.bat.txt", "keep.wav"}));

  settings.TempPath = (Root() / "missing").string();
  DeleteBatchFiles(settings, files);  // nothing to do, nothing thrown
}

}  // namespace
}  // namespace wavforge
