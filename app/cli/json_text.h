#pragma once
// What the listing commands print with --json: one JSON value on standard output, so that a
// script reads fields instead of cutting tab-separated text.

#include <string>
#include <string_view>

namespace vardolin {

// A JSON string literal, quotes included. Control characters are escaped; the catalogue's texts
// are UTF-8 already and pass as they are.
std::string JsonString(std::string_view text);

}  // namespace vardolin
