#include "foundation/services/ole_date.h"

#include <cmath>
#include <ctime>
#include <system_error>

namespace vardolin {

namespace {

constexpr double kUnixEpochOleDay = 25569.0;
constexpr double kSecondsPerDay = 86400.0;

}  // namespace

double OleDateOf(std::chrono::system_clock::time_point when) {
  const double seconds = std::chrono::duration<double>(when.time_since_epoch()).count();
  return kUnixEpochOleDay + seconds / kSecondsPerDay;
}

double OleDateNow() {
  return OleDateOf(std::chrono::system_clock::now());
}

std::chrono::system_clock::time_point TimeOfOleDate(double date) {
  if (!std::isfinite(date) || std::fabs(date) > 3.0e6) date = kUnixEpochOleDay;
  const auto seconds = std::chrono::duration<double>((date - kUnixEpochOleDay) * kSecondsPerDay);
  return std::chrono::system_clock::time_point(
      std::chrono::duration_cast<std::chrono::system_clock::duration>(seconds));
}

std::string FormatOleDate(double ole_date, const std::string& layout) {
  const std::time_t t = std::chrono::system_clock::to_time_t(
      std::chrono::round<std::chrono::seconds>(TimeOfOleDate(ole_date)));
  std::tm local{};
  if (!localtime_r(&t, &local)) return {};
  char out[128];
  const std::size_t n = std::strftime(out, sizeof out, layout.c_str(), &local);
  return std::string(out, n);
}

double FileOleDate(const std::filesystem::path& file) {
  std::error_code ec;
  const auto written = std::filesystem::last_write_time(file, ec);
  if (ec) return 0;
  return OleDateOf(std::chrono::time_point_cast<std::chrono::system_clock::duration>(
      std::chrono::file_clock::to_sys(written)));
}

}  // namespace vardolin
