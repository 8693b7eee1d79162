#pragma once
// Numbers of the texts the foundation uses. Every id here has an English wording in
// resources/english.trc; a test checks that.

#include <cstdint>

namespace vardolin::text {

// Settings and the program's own files.
inline constexpr std::int32_t SettingsFileName = 1089;  // "Vardolin.prf"

// Shared dialogs.
inline constexpr std::int32_t ProgramTitle = 2478;  // default title of a message box
inline constexpr std::int32_t MsgBoxTitle = 2945;
inline constexpr std::int32_t MsgBoxAbort = 2946;
inline constexpr std::int32_t MsgBoxRetry = 2947;
inline constexpr std::int32_t MsgBoxNo = 2948;
inline constexpr std::int32_t MsgBoxYes = 2949;
inline constexpr std::int32_t MsgBoxCancel = 2950;
inline constexpr std::int32_t MsgBoxOk = 2951;

}  // namespace vardolin::text
