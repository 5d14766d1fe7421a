#include <CLI/CLI.hpp>

#include <iostream>
#include <string>
#include <vector>

#include "cli/encode_command.h"
#include "cli/expand_command.h"
#include "cli/settings_command.h"
#include "cli/tags_command.h"
#include "platform/posix/posix_platform.h"
#include "settings/product.h"

namespace {

constexpr int kUsageError = 2;

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"wavforge-cli: see what the encoder will do, and drive it from a terminal"};
  app.set_version_flag("--version", std::string("wavforge-cli ") + WAVFORGE_VERSION);
  app.require_subcommand(1);

  auto* settings =
      app.add_subcommand("settings", "Load the settings as the program does and print them");

  std::vector<std::string> texts;
  auto* expand = app.add_subcommand("expand", "Print the placeholder expansion of each TEXT");
  expand->add_option("TEXT", texts, "Texts with placeholders such as %MyMusic% or %Date%")
      ->required();

  std::vector<std::string> tag_files;
  auto* tags = app.add_subcommand("tags", "Show the tags of each FILE and the output name it gets");
  tags->add_option("FILE", tag_files, "WAV recordings")->required();

  std::vector<std::string> encode_files;
  wavforge::cli::EncodeOptions encode_options;
  auto* encode = app.add_subcommand("encode", "Encode the FILEs as the Start button does");
  encode->add_option("FILE", encode_files, "WAV recordings; other files add nothing")->required();
  encode->add_flag("--dry-run", encode_options.dry_run,
                   "Print the plan and the job script instead of writing and starting it");
  encode
      ->add_flag("--wait", encode_options.wait,
                 "Follow the job until it ends and check that every output was written")
      ->excludes("--dry-run");
  encode->add_flag("--force", encode_options.force,
                   "Run the job even when its plan has problems (outputs that clash or exist, "
                   "sources that are missing or would be deleted by another file's line)");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error);
    return code == 0 ? 0 : kUsageError;
  }

  platform::posix::PosixPlatform system(wavforge::kProductName);
  if (settings->parsed()) return wavforge::cli::RunSettings(system.ports(), std::cout);
  if (expand->parsed()) return wavforge::cli::RunExpand(system.ports(), texts, std::cout);
  if (tags->parsed()) {
    return wavforge::cli::RunTags(system.ports(), tag_files, std::cout, std::cerr);
  }
  if (encode->parsed()) {
    return wavforge::cli::RunEncode(system.ports(), encode_files, encode_options, std::cout,
                                    std::cerr);
  }
  return kUsageError;
}
