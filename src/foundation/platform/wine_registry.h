#pragma once
// Reading the registry of a Wine prefix, where the Windows programs the program starts keep
// their settings. Wine stores it as text: system.reg for the local machine, user.reg for the
// current user.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vardolin {

// One value as the file holds it. Strings (plain, expandable, multi) are unescaped to UTF-8;
// a dword is given as its decimal number; binary values are not given.
struct RegistryValue {
  std::string key;   // "Software\Microsoft\..." with single backslashes
  std::string name;  // empty for the default value ("@")
  std::string data;
};

// Hands each value of a .reg text to `visit`, in file order; a false answer stops.
void ParseWineRegistry(std::string_view text,
                       const std::function<bool(const RegistryValue&)>& visit);
// The data of `name` (empty or "@" for the default value) under `key`, both without regard to
// case; nullopt when the key or value isn't there.
std::optional<std::string> FindWineRegistryValue(std::string_view text, std::string_view key,
                                                 std::string_view name);

// Looks a value up in the prefix's registry files. The key may start with HKEY_LOCAL_MACHINE
// (the default), HKEY_CURRENT_USER or HKEY_CLASSES_ROOT (or their short forms HKLM, HKCU,
// HKCR). Empty when the prefix, its file, the key or the value is missing.
std::string ReadWineRegistry(const std::filesystem::path& prefix, std::string_view key,
                             std::string_view name);

// $WINEPREFIX, else ~/.wine.
std::filesystem::path DefaultWinePrefix();
// Where Windows keeps its programs (its special folder 38): the default prefix's
// "drive_c/Program Files". A Windows program the user picks, as the game's tools are, lies there.
std::filesystem::path ProgramFilesFolder();

}  // namespace vardolin
