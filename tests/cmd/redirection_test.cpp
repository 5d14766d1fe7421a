#include "cmd/redirection.h"

#include <gtest/gtest.h>

#include <ostream>

namespace wavforge::cmd {

bool operator==(const Redirection& a, const Redirection& b) {
  return a.handle == b.handle && a.kind == b.kind && a.target == b.target &&
         a.target_handle == b.target_handle;
}

std::ostream& operator<<(std::ostream& out, const Redirection& r) {
  return out << "{" << r.handle << " kind " << static_cast<int>(r.kind) << " '" << r.target << "' &"
             << r.target_handle << "}";
}

namespace {

Redirection Write(int handle, std::string file) {
  return {handle, RedirectionKind::kTruncate, std::move(file), -1};
}
Redirection Append(int handle, std::string file) {
  return {handle, RedirectionKind::kAppend, std::move(file), -1};
}
Redirection Read(int handle, std::string file) {
  return {handle, RedirectionKind::kRead, std::move(file), -1};
}
Redirection Duplicate(int handle, int target) {
  return {handle, RedirectionKind::kDuplicate, "", target};
}

struct RedirectionCase {
  const char* name;
  std::string command;
  std::string text;
  std::vector<Redirection> redirections;
};

class ParseRedirectionsTest : public ::testing::TestWithParam<RedirectionCase> {};

TEST_P(ParseRedirectionsTest, SeparatesTheCommandFromItsRedirections) {
  const ParsedCommand parsed = ParseRedirections(GetParam().command);
  EXPECT_EQ(parsed.error, "");
  EXPECT_EQ(parsed.text, GetParam().text);
  EXPECT_EQ(parsed.redirections, GetParam().redirections);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ParseRedirectionsTest,
    ::testing::Values(
        RedirectionCase{"None", "lame -V2 a.wav", "lame -V2 a.wav", {}},
        RedirectionCase{"Output", "echo a>out.txt", "echo a", {Write(1, "out.txt")}},
        RedirectionCase{"OutputByNumber", "echo a 1>out.txt", "echo a ", {Write(1, "out.txt")}},
        RedirectionCase{"Append", "echo b >>out.txt", "echo b ", {Append(1, "out.txt")}},
        RedirectionCase{"Errors", "prog 2>err.txt", "prog ", {Write(2, "err.txt")}},
        RedirectionCase{"ErrorsAppended", "prog 2>>err.txt", "prog ", {Append(2, "err.txt")}},
        RedirectionCase{"Input", "prog <in.txt", "prog ", {Read(0, "in.txt")}},
        RedirectionCase{"ErrorsToOutput",
                        R"(lame a.wav >>"/logs/encode.log" 2>&1)",
                        "lame a.wav  ",
                        {Append(1, "/logs/encode.log"), Duplicate(2, 1)}},
        RedirectionCase{"OutputToErrors", "echo oops 1>&2", "echo oops ", {Duplicate(1, 2)}},
        RedirectionCase{"QuotedFileNameWithBlank",
                        R"(prog > "my log.txt" x)",
                        "prog  x",
                        {Write(1, "my log.txt")}},
        RedirectionCase{"QuotedGreaterThanIsText", R"(echo "a>b" c)", R"(echo "a>b" c)", {}},
        RedirectionCase{"CaretEscapes", "echo x^>y ^^z", "echo x>y ^z", {}},
        RedirectionCase{
            "BareDigitNamesTheHandle", "echo test2>nul", "echo test", {Write(2, "nul")}},
        RedirectionCase{"EscapedDigitIsText", "echo ^2>x", "echo 2", {Write(1, "x")}},
        RedirectionCase{"QuotedDigitIsText", R"(echo "2">x)", R"(echo "2")", {Write(1, "x")}},
        RedirectionCase{"SeveralInOrder", "echo a>b>c", "echo a", {Write(1, "b"), Write(1, "c")}},
        RedirectionCase{"FileNameEndsAtAnotherRedirection",
                        "prog>out.txt<in.txt",
                        "prog",
                        {Write(1, "out.txt"), Read(0, "in.txt")}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ParseRedirectionsErrorTest, RefusesARedirectionWithoutATarget) {
  for (const char* command :
       {"echo a >", "echo a > ", "echo a 2>&", "echo a >&x", "prog >>>x", "prog < \"\""}) {
    EXPECT_EQ(ParseRedirections(command).error, "The syntax of the command is incorrect.")
        << command;
  }
}

}  // namespace
}  // namespace wavforge::cmd
