#pragma once
// Builds the bytes of a language file with one entry per (id, text), for tests.

#include <string>
#include <utility>
#include <vector>

namespace vardolin::testing {

inline std::string Trc(const std::vector<std::pair<int, std::string>>& entries) {
  std::string out = std::to_string(entries.size()) + "\r\n";
  for (const auto& [id, text] : entries)
    out += std::to_string(id) + "\r\n\"\"\r\n\"" + text + "\"\r\n";
  return out;
}

}  // namespace vardolin::testing
