// Feeds arbitrary script lines through everything wavforge-cmd does to a line before it runs
// anything: expansion, chains, redirections, argument splitting and the built-ins' options.
// Besides crashes it checks properties that must hold for every input.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "cmd/command_chain.h"
#include "cmd/command_word.h"
#include "cmd/delete_options.h"
#include "cmd/expansion.h"
#include "cmd/invocation.h"
#include "cmd/redirection.h"
#include "cmd/start_options.h"
#include "cmd/variable_lookup.h"
#include "cmd/wildcard.h"
#include "platform/command_line.h"

namespace {

using namespace wavforge::cmd;

void Require(bool condition) {
  if (!condition) std::abort();
}

const VariableList kVariables = {{"HOME", "/home/ann"}, {"Temp", "/tmp"}, {"X", "%Y%&>"}};

// Splitting a line without quotes must give its blank-separated words unchanged.
void CheckPlainSplit(std::string_view text, const std::vector<std::string>& argv) {
  if (text.find('"') != std::string_view::npos) return;
  std::vector<std::string> words;
  std::string word;
  bool in_word = false;
  for (const char c : text) {
    if (c == ' ' || c == '\t') {
      if (in_word) words.push_back(word);
      word.clear();
      in_word = false;
    } else {
      word += c;
      in_word = true;
    }
  }
  if (in_word) words.push_back(word);
  Require(argv == words);
}

void CheckCommand(std::string_view command) {
  const ParsedCommand parsed = ParseRedirections(command);
  if (!parsed.error.empty()) return;
  Require(parsed.text.size() <= command.size());
  for (const Redirection& redirection : parsed.redirections) {
    Require(redirection.handle >= 0 && redirection.handle <= 9);
    Require(redirection.kind == RedirectionKind::kDuplicate ? redirection.target_handle >= 0
                                                            : !redirection.target.empty());
  }
  const std::vector<std::string> argv = platform::SplitCommandLine(parsed.text);
  CheckPlainSplit(parsed.text, argv);
  Require(platform::ProgramNameAsWritten(parsed.text).size() <= parsed.text.size());
  const CommandWord word = SplitCommandWord(TrimCommandStart(parsed.text));
  const DeleteOptions del = ParseDeleteOptions(word.rest);
  for (const std::string& name : del.names) Require(!name.empty());
  const StartOptions start = ParseStartOptions(word.rest);
  Require(start.command_line.size() <= word.rest.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);

  ExpansionContext context;
  context.script_path = "/tmp/Larkspur140510.bat";
  context.arguments = {"first", "\"two words\""};
  context.lookup = [](std::string_view name) { return FindVariable(kVariables, name); };

  // Without percent signs nothing expands; with no variables defined a command line stays.
  const std::string script_line = ExpandPercents(input, context);
  if (input.find('%') == std::string_view::npos) Require(script_line == input);
  ExpansionContext command_context = context;
  command_context.mode = ExpansionMode::kCommandLine;
  command_context.lookup = [](std::string_view) { return std::optional<std::string>(); };
  Require(ExpandPercents(input, command_context) == input);

  for (const std::string& line : {script_line, std::string(input)}) {
    const CommandChain chain = SplitCommandChain(line);
    std::size_t total = 0;
    for (const ChainedCommand& command : chain.commands) {
      total += command.text.size();
      CheckCommand(command.text);
    }
    Require(total <= line.size());
  }

  // A name without wildcards matches itself; "*" matches any name.
  const std::string_view pattern = input.substr(0, input.size() / 2);
  const std::string_view name = input.substr(input.size() / 2);
  MatchesWildcard(pattern, name);
  if (!HasWildcards(name)) Require(MatchesWildcard(name, name));
  if (!name.empty()) Require(MatchesWildcard("*", name));

  std::vector<std::string> words;
  for (const std::string& word : platform::SplitCommandLine(input)) words.push_back(word);
  const Invocation invocation = ParseInvocation(words);
  Require(invocation.error.empty() || words.size() <= 8);
  return 0;
}
