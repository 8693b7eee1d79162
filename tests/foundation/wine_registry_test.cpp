#include "foundation/platform/wine_registry.h"

#include <gtest/gtest.h>

namespace vardolin {
namespace {

const char* kSystemReg =
    "WINE REGISTRY Version 2\n"
    ";; All keys relative to \\\\Machine\n"
    "\n"
    "#arch=win32\n"
    "\n"
    "[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\App Paths\\\\winroomedit.exe] "
    "1600000000\n"
    "#time=1d6a2b3c4d5e6f7\n"
    "@=\"C:\\\\Program Files\\\\TRLE\\\\winroomedit.exe\"\r\n"
    "\"Path\"=str(2):\"C:\\\\Program Files\\\\TRLE\"\n"
    "\n"
    "[Software\\\\Vardolin] 1600000001\n"
    "\"Count\"=dword:0000002a\n"
    "\"Blob\"=hex:01,02,\\\n"
    "  03,04\n"
    "\"Quote \\\"q\\\"\"=\"say \\\"hi\\\"\\ttab\\x00e9\\x263a\"\n"
    "\"Broken\"=\"no end\n"
    "\"Multi\"=str(7):\"a\\0b\\0\"\n"
    "[Software\\\\Classes\\\\.trl] 1\n"
    "@=\"Vardolin.Catalogue\"\n";

TEST(WineRegistryTest, FindsValuesWithoutRegardToCase) {
  const std::tuple<const char*, const char*, std::optional<std::string>> cases[] = {
      {"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\winroomedit.exe", "",
       "C:\\Program Files\\TRLE\\winroomedit.exe"},
      {"SOFTWARE\\microsoft\\windows\\currentversion\\app paths\\WINROOMEDIT.EXE\\", "@",
       "C:\\Program Files\\TRLE\\winroomedit.exe"},
      {"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\winroomedit.exe", "path",
       "C:\\Program Files\\TRLE"},
      {"Software\\Vardolin", "Count", "42"},
      {"Software\\Vardolin", "Quote \"q\"", "say \"hi\"\ttab\xC3\xA9\xE2\x98\xBA"},
      {"Software\\Vardolin", "Multi", std::string("a\0b\0", 4)},
      {"Software\\Vardolin", "Blob", std::nullopt},
      {"Software\\Vardolin", "Broken", std::nullopt},
      {"Software\\Missing", "", std::nullopt},
  };
  for (const auto& [key, name, data] : cases)
    EXPECT_EQ(FindWineRegistryValue(kSystemReg, key, name), data) << key << " / " << name;
}

}  // namespace
}  // namespace vardolin
