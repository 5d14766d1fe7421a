#include "qt/single_instance.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <thread>

#include "background_process.h"
#include "desktop_window_fixture.h"
#include "support/isolated_home.h"

namespace wavforge::qt {
namespace {

using namespace std::chrono_literals;
using testing_support::BackgroundProcess;

class SingleInstanceTest : public testing_support::IsolatedHomeTest {};

// The later start waits for an answer, which the first can only give from its event loop:
// the later one runs on a thread of its own here.
bool AskFromAnotherStart(const QString& folder) {
  std::atomic<bool> finished{false};
  bool answered = false;
  std::thread later([&] {
    answered = SingleInstance(folder).AskFirstToActivate(5000);
    finished = true;
  });
  while (!finished) QApplication::processEvents(QEventLoop::AllEvents, 20);
  later.join();
  QApplication::processEvents();
  return answered;
}

TEST_F(SingleInstanceTest, OnlyTheFirstStartHoldsTheProgram) {
  const QString folder = QString::fromStdString(Root().string());
  SingleInstance first(folder);
  ASSERT_TRUE(first.BecomeFirst());
  SingleInstance second(folder);
  EXPECT_FALSE(second.BecomeFirst());
  // Another name is another program.
  SingleInstance other(folder, QStringLiteral("other"));
  EXPECT_TRUE(other.BecomeFirst());
}

TEST_F(SingleInstanceTest, TheFirstStartsWindowComesForwardWhenAskedByALaterOne) {
  const QString folder = QString::fromStdString(Root().string());
  QLabel first_window(QStringLiteral("first"));
  QLabel other_window(QStringLiteral("other"));
  first_window.show();
  other_window.show();
  other_window.activateWindow();
  QApplication::processEvents();
  ASSERT_NE(QApplication::activeWindow(), &first_window);

  SingleInstance first(folder);
  ASSERT_TRUE(first.BecomeFirst());
  int requests = 0;
  first.OnActivationRequest([&] {
    ++requests;
    first_window.raise();
    first_window.activateWindow();
  });
  EXPECT_TRUE(AskFromAnotherStart(folder));
  EXPECT_EQ(requests, 1);
  EXPECT_EQ(QApplication::activeWindow(), &first_window);
}

TEST_F(SingleInstanceTest, ALaterStartWithNobodyListeningGivesUpInTime) {
  const QString folder = QString::fromStdString(Root().string());
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_FALSE(SingleInstance(folder).AskFirstToActivate(300));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 3s);
}

// The real program, killed while it runs, leaves its lock and socket behind.
TEST_F(SingleInstanceTest, WhatAKilledStartLeftIsTakenOver) {
  const auto err = Root() / "killed.err";
  {
    BackgroundProcess killed({WAVFORGE_DESKTOP_PATH},
                             {"QT_QPA_PLATFORM=offscreen", "WAVFORGE_STARTUP_PROBE=1"}, err);
    ASSERT_TRUE(testing_support::WaitForFileText(err, "window shown", 20s))
        << testing_support::ReadFile(err);
  }
  const QString folder = SingleInstance::RuntimeFolder();
  SingleInstance first(folder);
  ASSERT_TRUE(first.BecomeFirst());
  int requests = 0;
  first.OnActivationRequest([&] { ++requests; });
  EXPECT_TRUE(AskFromAnotherStart(folder));
  EXPECT_EQ(requests, 1);
}

// The real program, twice: the second start ends at once without a window of its own and
// leaves the first running.
TEST_F(SingleInstanceTest, ASecondProgramStartEndsAndLeavesTheFirstRunning) {
  const auto first_err = Root() / "first.err";
  const auto second_err = Root() / "second.err";
  const std::vector<std::string> env = {"QT_QPA_PLATFORM=offscreen", "WAVFORGE_STARTUP_PROBE=1",
                                        "ASAN_OPTIONS=detect_leaks=0"};
  BackgroundProcess first({WAVFORGE_DESKTOP_PATH}, env, first_err);
  ASSERT_TRUE(testing_support::WaitForFileText(first_err, "window shown", 20s))
      << testing_support::ReadFile(first_err);

  BackgroundProcess second({WAVFORGE_DESKTOP_PATH, "x.wav"}, env, second_err);
  EXPECT_EQ(second.WaitForExit(20s), 0);
  EXPECT_EQ(testing_support::ReadFile(second_err).find("window shown"), std::string::npos)
      << testing_support::ReadFile(second_err);
  EXPECT_TRUE(first.Running());
}

}  // namespace
}  // namespace wavforge::qt
