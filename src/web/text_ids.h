#pragma once
// Numbers of the texts the web, zip and packing layer uses. Every id here has an English
// wording in resources/english.trc.

#include <cstdint>

namespace vardolin::text {

// Single-file packing.
inline constexpr std::int32_t ZipDialogCaption = 1078;  // " Zipping"
inline constexpr std::int32_t CannotExpandFile = 1229;  // ~1 = the packed file's name
inline constexpr std::int32_t PackedSuffix = 1253;      // ".zl", put behind a packed file's name

// Archives.
inline constexpr std::int32_t CannotUnpackArchive = 2255;  // shown behind the archive's name

// Dialog_InputTesto.
inline constexpr std::int32_t InputTestoClear = 5920;  // caption of Pul_Svuota

}  // namespace vardolin::text
