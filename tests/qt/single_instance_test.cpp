#include "qt/single_instance.h"

#include <QApplication>
#include <atomic>
#include <thread>

#include "support/isolated_home.h"
#include "support/run_process.h"

namespace wavforge::qt {
namespace {

class SingleInstanceTest : public testing_support::IsolatedHomeTest {};

// The real program, started while this process is the first: it asks this one to come forward
// and ends without a window of its own. This process answers from its event loop, so the
// program waits on a thread of its own here.
TEST_F(SingleInstanceTest, ALaterStartAsksTheFirstToComeForwardAndEnds) {
  SingleInstance first(SingleInstance::RuntimeFolder());
  ASSERT_TRUE(first.BecomeFirst());
  int requests = 0;
  first.OnActivationRequest([&] { ++requests; });
  std::atomic<bool> finished{false};
  testing_support::ProcessResult later;
  std::thread waiting([&] {
    later = testing_support::RunProcess({"/usr/bin/timeout", "20", "/usr/bin/env",
                                         "QT_QPA_PLATFORM=offscreen", "WAVFORGE_STARTUP_PROBE=1",
                                         "ASAN_OPTIONS=detect_leaks=0", WAVFORGE_DESKTOP_PATH,
                                         "x.wav"});
    finished = true;
  });
  while (!finished) QApplication::processEvents(QEventLoop::AllEvents, 20);
  waiting.join();
  EXPECT_EQ(later.exit_code, 0) << later.err;
  EXPECT_EQ(later.err.find("window shown"), std::string::npos) << later.err;
  EXPECT_EQ(requests, 1);
}

}  // namespace
}  // namespace wavforge::qt
