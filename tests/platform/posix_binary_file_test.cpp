#include "platform/posix/posix_binary_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

std::set<int> OpenDescriptors() {
  std::set<int> descriptors;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    descriptors.insert(std::stoi(entry.path().filename().string()));
  }
  return descriptors;
}

class PosixBinaryFileTest : public testing_support::IsolatedHomeTest {
 protected:
  std::string Make(const std::string& bytes) {
    const auto path = TempFolder() / "file.bin";
    testing_support::WriteFile(path, bytes);
    return path.string();
  }
  PosixBinaryFileOpener opener_;
};

struct ReadCase {
  std::uint64_t offset;
  std::size_t count;
  std::string expected;
};

TEST_F(PosixBinaryFileTest, ReadsAtOffsetsUpToTheEnd) {
  const auto file = opener_.OpenForReading(Make("0123456789"));
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->Size(), 10u);
  for (const ReadCase& read :
       {ReadCase{3, 4, "3456"}, ReadCase{8, 5, "89"}, ReadCase{1ull << 40, 4, ""}}) {
    std::string buffer(read.count, '\0');
    buffer.resize(file->ReadAt(read.offset, buffer));
    EXPECT_EQ(buffer, read.expected) << "offset " << read.offset;
  }
}

TEST_F(PosixBinaryFileTest, RefusesWhatIsNoRegularFile) {
  EXPECT_EQ(opener_.OpenForReading((TempFolder() / "missing.wav").string()), nullptr);
  EXPECT_EQ(opener_.OpenForReading(TempFolder().string()), nullptr);
}

TEST_F(PosixBinaryFileTest, DescriptorIsCloseOnExecAndClosedWithTheObject) {
  const std::string path = Make("RIFF");
  const auto before = OpenDescriptors();
  {
    const auto file = opener_.OpenForReading(path);
    ASSERT_NE(file, nullptr);
    std::set<int> added;
    for (const int descriptor : OpenDescriptors()) {
      if (!before.count(descriptor)) added.insert(descriptor);
    }
    ASSERT_EQ(added.size(), 1u);
    EXPECT_TRUE(fcntl(*added.begin(), F_GETFD) & FD_CLOEXEC);
  }
  EXPECT_EQ(OpenDescriptors(), before);
}

}  // namespace
}  // namespace platform::posix
