#include <gtest/gtest.h>

#include "cmd/delete_options.h"
#include "cmd/start_options.h"

namespace wavforge::cmd {
namespace {

// The parts of the options that are set, in one line.
std::string Describe(const DeleteOptions& options) {
  std::string text = std::string(options.recurse ? "/s " : "") + (options.show_help ? "/? " : "");
  for (const std::string& name : options.names) text += "[" + name + "]";
  return text;
}

std::string Describe(const StartOptions& options) {
  std::string text = "[" + options.title + "]";
  if (options.wait) text += " wait";
  if (options.niceness) text += " nice " + std::to_string(*options.niceness);
  if (!options.folder.empty()) text += " in " + options.folder;
  if (!options.error.empty()) text += " error";
  return text + " run [" + options.command_line + "]";
}

TEST(ParseDeleteOptionsTest, TellsSwitchesFromNames) {
  const std::pair<const char*, const char*> cases[] = {
      {R"( /q /f "a b.txt" c.txt)", "[a b.txt][c.txt]"},
      {"/Q/f/s x", "/s [x]"},
      {" /a:h /A x", "[x]"},
      {" /tmp/x.wav", "[/tmp/x.wav]"},  // an absolute path is no switch
      {" /q/x", "[/q/x]"},              // nor is a run with an unknown letter
      {R"( "/q")", "[/q]"},
      {" /?", "/? "},
      {R"( "")", ""},
  };
  for (const auto& [arguments, expected] : cases) {
    EXPECT_EQ(Describe(ParseDeleteOptions(arguments)), expected) << arguments;
  }
}

TEST(ParseStartOptionsTest, FindsTitleSwitchesAndProgram) {
  const std::pair<const char*, const char*> cases[] = {
      {R"( "" /b sleep 5)", "[] run [sleep 5]"},
      {R"( "Encoder" /WAIT /low lame -V2 "a b.wav")",
       R"([Encoder] wait nice 19 run [lame -V2 "a b.wav"])"},
      {R"( /belownormal /min prog "x y")", R"([] nice 10 run [prog "x y"])"},
      {" /d /srv/rec prog", "[] in /srv/rec run [prog]"},
      {" /usr/bin/prog -x", "[] run [/usr/bin/prog -x]"},
      {R"( "/opt/my tools/prog" arg)", "[/opt/my tools/prog] run [arg]"},
      {" /d", "[] error run []"},
  };
  for (const auto& [arguments, expected] : cases) {
    EXPECT_EQ(Describe(ParseStartOptions(arguments)), expected) << arguments;
  }
}

}  // namespace
}  // namespace wavforge::cmd
