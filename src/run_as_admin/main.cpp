// RunAsAdmin.lnk: restarts the command interpreter beside it with administrator rights, handing
// on its parameters, so the program can restart itself elevated through pkexec. Like the
// shortcut it stands for it says nothing: a failure shows only in its exit status.

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

// pkexec gives the program a clean environment; the restarted window needs the display back.
// Not XDG_RUNTIME_DIR: the elevated program would leave files of its own in the user's folder
// there, so a Wayland display goes by its full path.
std::vector<std::string> DisplayEnvironment() {
  std::vector<std::string> settings;
  if (const char* display = std::getenv("DISPLAY"))
    settings.push_back(std::string("DISPLAY=") + display);
  const char* authority = std::getenv("XAUTHORITY");
  const char* home = std::getenv("HOME");
  if (authority) {
    settings.push_back(std::string("XAUTHORITY=") + authority);
  } else if (home && std::filesystem::exists(std::filesystem::path(home) / ".Xauthority")) {
    // The X library's default, which under root's home would be root's.
    settings.push_back(std::string("XAUTHORITY=") + home + "/.Xauthority");
  }
  if (const char* wayland = std::getenv("WAYLAND_DISPLAY")) {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (wayland[0] == '/') {
      settings.push_back(std::string("WAYLAND_DISPLAY=") + wayland);
    } else if (runtime) {
      settings.push_back(std::string("WAYLAND_DISPLAY=") + runtime + "/" + wayland);
    }
  }
  return settings;
}

}  // namespace

int main(int argc, char** argv) {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return 1;
  // pkexec wants absolute paths to the programs it runs.
  const std::string interpreter = (self.parent_path() / "wavforge-cmd").string();
  std::vector<std::string> settings = DisplayEnvironment();
  std::vector<char*> args = {const_cast<char*>("pkexec"), const_cast<char*>("/usr/bin/env")};
  for (std::string& setting : settings) args.push_back(setting.data());
  args.push_back(const_cast<char*>(interpreter.c_str()));
  for (int i = 1; i < argc; ++i) args.push_back(argv[i]);
  args.push_back(nullptr);
  execvp("pkexec", args.data());
  return 127;
}
