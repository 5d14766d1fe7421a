// RunAsAdmin.lnk: restarts the command interpreter beside it with administrator rights, handing
// on its parameters, so the program can restart itself elevated through pkexec.

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

int main(int argc, char** argv) {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) {
    std::perror("RunAsAdmin.lnk");
    return 1;
  }
  // pkexec wants an absolute path to the program it runs.
  const std::string interpreter = (self.parent_path() / "wavforge-cmd").string();
  std::vector<char*> args = {const_cast<char*>("pkexec"), const_cast<char*>(interpreter.c_str())};
  for (int i = 1; i < argc; ++i) args.push_back(argv[i]);
  args.push_back(nullptr);
  execvp("pkexec", args.data());
  std::perror("RunAsAdmin.lnk: pkexec");
  return 127;
}
