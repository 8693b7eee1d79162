// Install scripts are plain text from a package: any text must parse without a crash, and the
// tom links must come in whole pairs.

#include "intake/install_script.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const vardolin::InstallScriptTexts texts = {"INSTALL", "KEYS", "</",  "a",
                                                     "r",       "n",    "YES", "YES"};
  vardolin::InstallScript script;
  vardolin::ParseInstallScript(std::string_view(reinterpret_cast<const char*>(data), size), script,
                               texts);
  if (script.TomFiles.size() != script.TomWads.size() ||
      script.TomFiles.size() != static_cast<size_t>(script.TomLinkCount))
    __builtin_trap();
  return 0;
}
