#include "cmd/redirection.h"

#include <gtest/gtest.h>

namespace wavforge::cmd {
namespace {

// The command's text, then each redirection as written in cmd: "echo a | 1>out.txt 2>&1".
std::string Describe(const ParsedCommand& parsed) {
  std::string text = parsed.text + " |";
  for (const Redirection& r : parsed.redirections) {
    text.append(" ").append(std::to_string(r.handle));
    switch (r.kind) {
      case RedirectionKind::kTruncate:
        text += ">" + r.target;
        break;
      case RedirectionKind::kAppend:
        text += ">>" + r.target;
        break;
      case RedirectionKind::kRead:
        text += "<" + r.target;
        break;
      case RedirectionKind::kDuplicate:
        text += ">&" + std::to_string(r.target_handle);
        break;
    }
  }
  return text;
}

TEST(ParseRedirectionsTest, SeparatesTheCommandFromItsRedirections) {
  const std::pair<const char*, const char*> cases[] = {
      {"echo a>out.txt", "echo a | 1>out.txt"},
      {"echo a 1>out.txt", "echo a  | 1>out.txt"},
      {"echo b >>out.txt", "echo b  | 1>>out.txt"},
      {"prog 2>err.txt", "prog  | 2>err.txt"},
      {"prog <in.txt", "prog  | 0<in.txt"},
      {R"(lame a.wav >>"/logs/encode.log" 2>&1)", "lame a.wav   | 1>>/logs/encode.log 2>&1"},
      {R"(prog > "my log.txt" x)", "prog  x | 1>my log.txt"},
      {R"(echo "a>b" c)", R"(echo "a>b" c |)"},
      {"echo x^>y ^^z", "echo x>y ^z |"},
      {"echo test2>nul", "echo test | 2>nul"},  // a bare digit before the sign is the handle
      {"echo ^2>x", "echo 2 | 1>x"},
      {R"(echo "2">x)", R"(echo "2" | 1>x)"},
      {"prog>out.txt<in.txt", "prog | 1>out.txt 0<in.txt"},
  };
  for (const auto& [command, expected] : cases) {
    const ParsedCommand parsed = ParseRedirections(command);
    EXPECT_EQ(parsed.error, "") << command;
    EXPECT_EQ(Describe(parsed), expected) << command;
  }
}

TEST(ParseRedirectionsTest, RefusesARedirectionWithoutATarget) {
  for (const char* command :
       {"echo a > ", "echo a 2>&", "echo a >&x", "prog >>>x", "prog < \"\""}) {
    EXPECT_EQ(ParseRedirections(command).error, "The syntax of the command is incorrect.")
        << command;
  }
}

}  // namespace
}  // namespace wavforge::cmd
