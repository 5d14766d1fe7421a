#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_reader.h"

namespace wavforge {

// One entry of a navigation table: a short key and a page file name.
struct NavEntry {
  std::string Key;
  std::string Page;
  bool operator==(const NavEntry&) const = default;
};

// Entry numbers count from 1, as the pages' commands use them.
using NavTable = std::vector<NavEntry>;

// Every key of every section of a navigation file, in file order; empty for a missing file.
NavTable ReadLocalNav(const platform::ProfileReader& profiles, const std::string& file);

// Reads the online navigation text into table: every line with exactly one "=" is an entry;
// section headers, comments and lines with more "=" are skipped. Lines end in CR LF or LF.
// When no line qualifies the table keeps what it had.
void ReadOnlineNav(std::string_view text, NavTable& table);

// The first entry number whose key (page) equals the text ignoring letter case; 0 for none.
int FindNavKey(const NavTable& table, std::string_view key);
int FindNavPage(const NavTable& table, std::string_view page);

}  // namespace wavforge
