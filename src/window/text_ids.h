#pragma once
// Text ids of the main window's own messages.

#include <cstdint>

namespace vardolin::text {

// What a new user does next, shown in the level line, and the offers made when a step is done.
inline constexpr std::int32_t NextStepEditor = 9510;
inline constexpr std::int32_t NextStepArchive = 9511;
inline constexpr std::int32_t NextStepLevel = 9512;
inline constexpr std::int32_t NextStepOfferArchive = 9513;
inline constexpr std::int32_t NextStepOfferLevel = 9514;

}  // namespace vardolin::text
