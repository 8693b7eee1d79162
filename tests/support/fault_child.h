#pragma once
// Kill tests run this very test program again as a child that does one job and dies where the
// fault point says (VARDOLIN_FAULT_POINT). The job reaches the child through an environment
// variable; the child's test reads it and does the work.

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace vardolin::testing {

// 1 when the fault point killed the child, 0 when it finished.
inline int RunFaultChild(const char* child_test, const char* job_variable, const std::string& job,
                         const std::string& point) {
  const pid_t pid = fork();
  if (pid == 0) {
    setenv(job_variable, job.c_str(), 1);
    setenv("VARDOLIN_FAULT_POINT", point.c_str(), 1);
    std::freopen("/dev/null", "w", stdout);
    const std::string filter = std::string("--gtest_filter=") + child_test;
    execl("/proc/self/exe", "child", filter.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  int status = 0;
  waitpid(pid, &status, 0);
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return 1;
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << point;
  return 0;
}

// In the child: the job the parent sent as "what|root", or nothing when this isn't the child.
struct FaultJob {
  std::string what;
  std::filesystem::path root;
};
inline std::optional<FaultJob> ReadFaultJob(const char* job_variable) {
  const char* job = std::getenv(job_variable);
  const std::string text = job ? job : "";
  const std::size_t bar = text.find('|');
  if (bar == std::string::npos) return std::nullopt;
  return FaultJob{text.substr(0, bar), text.substr(bar + 1)};
}

}  // namespace vardolin::testing
