#pragma once
// File-name patterns as the Windows file system matches them, without regard to case:
// '*' any run of characters, '?' one character. "*.*" matches every name, and "name.*" also
// matches "name" without an extension.

#include <string_view>

namespace vardolin {

bool WildcardMatch(std::string_view name, std::string_view pattern);

}  // namespace vardolin
