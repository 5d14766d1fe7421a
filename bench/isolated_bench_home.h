#pragma once

#include <string>

namespace wavforge::bench {

// Points HOME, the XDG folders and TMPDIR of this process into a fresh folder below the
// temporary folder for as long as the object lives, so a benchmark run never reads or writes
// the user's own settings, registry, log or music. The folder is removed afterwards.
class IsolatedBenchHome {
 public:
  IsolatedBenchHome();
  ~IsolatedBenchHome();
  IsolatedBenchHome(const IsolatedBenchHome&) = delete;
  IsolatedBenchHome& operator=(const IsolatedBenchHome&) = delete;

  const std::string& Root() const { return root_; }
  std::string Home() const { return root_ + "/home"; }
  std::string ConfigHome() const { return Home() + "/.config"; }
  std::string Temp() const { return root_ + "/tmp"; }

 private:
  std::string root_;
};

}  // namespace wavforge::bench
