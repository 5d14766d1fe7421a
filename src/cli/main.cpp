#include <CLI/CLI.hpp>

#include <iostream>

int main(int argc, char** argv) {
  CLI::App app{"wavforge-cli: see what the encoder will do, and drive it from a terminal"};
  app.set_version_flag("--version", std::string("wavforge-cli ") + WAVFORGE_VERSION);
  app.require_subcommand(1);
  CLI11_PARSE(app, argc, argv);
  return 0;
}
