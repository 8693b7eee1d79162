#pragma once
// Numbers of the texts the play subsystem uses. Every id here has an English wording in
// resources/english.trc. Ids marked "fragment" are path fragments.

#include <cstdint>

namespace vardolin::text {

// The marker of the level that stands in the editor folder.
inline constexpr std::int32_t ActiveLevelFileName = 1124;  // fragment, same as 1183 and 1573
inline constexpr std::int32_t ActiveLevelCodeKey = 1192;   // same as 1133 and 1574

}  // namespace vardolin::text
