#pragma once
// The places in the manual that the program opens: a help button jumps to its topic mark, the
// help menu to its own. Every mark here stands in resources/help_vardolin.txt at the section
// about its form; a test holds the two together.

namespace vardolin::help {

inline constexpr const char* Assistant = "#1#";
inline constexpr const char* NewLevel = "#2#";
inline constexpr const char* Compila = "#3#";
inline constexpr const char* Settings = "#4#";
inline constexpr const char* PrefArc = "#5#";
inline constexpr const char* SetupCd = "#6#";
inline constexpr const char* TipoExe = "#6#";
inline constexpr const char* AddWads = "#7#";
inline constexpr const char* ScambiaNomi = "#7#";
inline constexpr const char* MuoviSuCd = "#9#";
inline constexpr const char* TrovaTrle = "#10#";
inline constexpr const char* InstallaTrle = "#11#";
inline constexpr const char* SaveGameManual = "#18#";
inline constexpr const char* Faq = "#28#";
inline constexpr const char* CercaLivelli = "#32#";
inline constexpr const char* JoyStick = "#33#";
// F1 in the main window: the manual's first chapter.
inline constexpr const char* MainWindow = "[Getting started]";

}  // namespace vardolin::help
