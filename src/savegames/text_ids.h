#pragma once
// Numbers of the texts the savegames and screenshots subsystem uses. Every id here has an
// English wording in resources/english.trc.

#include <cstdint>

namespace vardolin::text {

// The joystick window.
inline constexpr std::int32_t JoyPortFirst = 2627;
inline constexpr std::int32_t JoyPortSecond = 2628;
inline constexpr std::int32_t JoyPortSilent = 2629;
inline constexpr std::int32_t JoyNotAnswering = 2630;
inline constexpr std::int32_t JoyCloseButtonMissing = 2631;
inline constexpr std::int32_t JoyCaptureButtonMissing = 2632;
inline constexpr std::int32_t JoyTitle = 5770;
inline constexpr std::int32_t JoyGamePort = 5771;
inline constexpr std::int32_t JoyCloseTrle = 5772;
inline constexpr std::int32_t JoyCatturaShot = 5773;
inline constexpr std::int32_t JoyOnlyButton = 5774;
inline constexpr std::int32_t JoyOk = 5775;
inline constexpr std::int32_t JoyCancel = 5776;
inline constexpr std::int32_t JoyHelp = 5777;

}  // namespace vardolin::text
