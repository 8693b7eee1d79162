#pragma once
// The process's surroundings for a test: environment variables set for a while, the native
// stand-in programs, and waiting on what another process does.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <thread>

namespace vardolin::testing {

// Sets (or, given null, unsets) an environment variable for the life of the object and gives
// back what stood before.
class ScopedEnv {
 public:
  ScopedEnv(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
  }
  ScopedEnv(const char* name, const std::string& value) : ScopedEnv(name, value.c_str()) {}
  ~ScopedEnv() { old_ ? ::setenv(name_, old_->c_str(), 1) : ::unsetenv(name_); }
  ScopedEnv(const ScopedEnv&) = delete;
  ScopedEnv& operator=(const ScopedEnv&) = delete;

 private:
  const char* name_;
  std::optional<std::string> old_;
};

// A native stand-in program of tests/support/programs, as the build made it.
inline std::filesystem::path Standin(const std::string& name) {
  const char* env = std::getenv("VARDOLIN_STANDINS");
  return (env && *env ? std::filesystem::path(env)
                      : std::filesystem::path(VARDOLIN_BUILD_DIR) / "standins") /
         name;
}

// Polls `done` until it holds; false when it doesn't within the limit.
inline bool WaitFor(const std::function<bool()>& done,
                    std::chrono::milliseconds limit = std::chrono::milliseconds(5000)) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!done()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

}  // namespace vardolin::testing
