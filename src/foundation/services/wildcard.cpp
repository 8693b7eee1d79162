#include "foundation/services/wildcard.h"

#include "foundation/services/strings.h"

namespace vardolin {
namespace {

// Iterative glob with one backtrack point: linear in practice, no recursion to blow up on
// patterns full of stars.
bool Glob(std::string_view name, std::string_view pattern) {
  std::size_t n = 0, p = 0, star = std::string_view::npos, mark = 0;
  while (n < name.size()) {
    if (p < pattern.size() &&
        (pattern[p] == '?' || AsciiLower(pattern[p]) == AsciiLower(name[n]))) {
      ++n;
      ++p;
    } else if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      mark = n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++mark;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace

bool WildcardMatch(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  if (Glob(name, pattern)) return true;
  if (pattern.size() >= 2 && pattern.substr(pattern.size() - 2) == ".*" &&
      name.find('.') == std::string_view::npos)
    return Glob(name, pattern.substr(0, pattern.size() - 2));
  return false;
}

}  // namespace vardolin
