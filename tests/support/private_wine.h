#pragma once

#include <gtest/gtest.h>

#include "environment.h"
#include "foundation/platform/linux_platform.h"
#include "temp_dir.h"

namespace vardolin::testing {

namespace fs = std::filesystem;

inline bool OnPath(const std::string& name) {
  return std::system(("command -v '" + name + "' >/dev/null 2>&1").c_str()) == 0;
}

// Wine for the test alone: its own prefix, quiet, without a window (no display, no offer to
// install Mono or Gecko). The prefix's server is started persistent, so that it surely stays
// behind the game as it does on a desktop, and is ended with the test whatever happens.
class PrivateWine {
 public:
  PrivateWine(LinuxPlatform& platform, const fs::path& prefix)
      : platform_(platform), prefix_(prefix.string()) {
    fs::create_directories(prefix);
    EXPECT_EQ(Run({"-p"}), 0) << "wineserver -p";
  }
  ~PrivateWine() { Run({"-k"}); }

  // A server of this prefix is alive (a zombie shows no environment, so it doesn't count).
  bool ServerRunning() const {
    const std::string mark = std::string("WINEPREFIX=") + prefix_;
    for (const auto& entry : fs::directory_iterator("/proc")) {
      if (!ReadFile(entry.path() / "comm").starts_with("wineserver")) continue;
      std::istringstream environment(ReadFile(entry.path() / "environ"));
      for (std::string variable; std::getline(environment, variable, '\0');)
        if (variable == mark) return true;
    }
    return false;
  }

 private:
  int Run(std::vector<std::string> arguments) {
    auto server = platform_.Start({"wineserver", std::move(arguments), {}, true});
    if (!server || platform_.Wait(*server, std::chrono::seconds(30)) != WaitResult::Ended)
      return -1;
    return platform_.ExitCode(*server);
  }

  LinuxPlatform& platform_;
  std::string prefix_;
  ScopedEnv env_[6] = {{"WINEPREFIX", prefix_.c_str()},
                       {"WINEDEBUG", "-all"},
                       {"WINEDLLOVERRIDES", "mscoree,mshtml="},
                       {"VARDOLIN_WINE", nullptr},
                       {"DISPLAY", nullptr},
                       {"WAYLAND_DISPLAY", nullptr}};
};

}  // namespace vardolin::testing
