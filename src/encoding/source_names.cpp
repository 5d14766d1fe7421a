#include "encoding/source_names.h"

#include "platform/path_rules.h"

namespace wavforge {
namespace {

constexpr std::size_t kExtensionLength = 4;

std::string WithoutExtension(std::string_view path) {
  if (path.size() < kExtensionLength) return {};
  return std::string(path.substr(0, path.size() - kExtensionLength));
}

}  // namespace

std::string BasePath(std::string_view source) {
  return WithoutExtension(source);
}

std::string SourceFolder(std::string_view source) {
  const auto separator = source.rfind(platform::kPathSeparator);
  if (separator == std::string_view::npos) return {};
  return std::string(source.substr(0, separator + 1));
}

std::string FileTitle(std::string_view source) {
  const auto separator = source.rfind(platform::kPathSeparator);
  const std::size_t start = separator == std::string_view::npos ? 0 : separator + 1;
  return WithoutExtension(source.substr(start));
}

}  // namespace wavforge
