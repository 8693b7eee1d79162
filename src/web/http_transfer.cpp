#include "web/http_transfer.h"

#include <curl/curl.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <system_error>

namespace vardolin {

namespace {

using Clock = std::chrono::steady_clock;

// How often the progress handler hears of the transfer. Often enough for a bar and a Stop
// button that answers at once; seldom enough that a fast local transfer isn't slowed by
// repainting.
constexpr auto kProgressEvery = std::chrono::milliseconds(50);
// How long one wait for the network lasts, so a stalled server still lets the window run.
constexpr int kPollMs = 50;

struct CurlGlobal {
  CurlGlobal() { curl_global_init(CURL_GLOBAL_DEFAULT); }
  ~CurlGlobal() { curl_global_cleanup(); }
};

struct Sink {
  int fd = -1;
  int write_errno = 0;
};

size_t WriteBody(char* data, size_t size, size_t count, void* user) {
  auto* sink = static_cast<Sink*>(user);
  const size_t total = size * count;
  size_t done = 0;
  while (done < total) {
    const ssize_t n = ::write(sink->fd, data + done, total - done);
    if (n < 0) {
      if (errno == EINTR) continue;
      sink->write_errno = errno;
      return 0;  // tells curl to give up with a write error
    }
    done += static_cast<size_t>(n);
  }
  return total;
}

struct EasyDeleter {
  void operator()(CURL* c) const { curl_easy_cleanup(c); }
};
struct MultiDeleter {
  void operator()(CURLM* m) const { curl_multi_cleanup(m); }
};

TransferOutcome OutcomeOf(CURLcode code) {
  switch (code) {
    case CURLE_OK:
      return TransferOutcome::Done;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_CONNECT:
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_URL_MALFORMAT:
      return TransferOutcome::Unreachable;
    case CURLE_HTTP_RETURNED_ERROR:
      return TransferOutcome::HttpError;
    default:
      return TransferOutcome::Failed;
  }
}

}  // namespace

SpeedFloor TransferSpeedFloor() {
  SpeedFloor floor;
  const char* given = std::getenv("VARDOLIN_SPEED_FLOOR");
  long bytes = 0, seconds = 0;
  char end = 0;
  if (given && std::sscanf(given, "%ld/%ld%c", &bytes, &seconds, &end) == 2 && bytes > 0 &&
      seconds > 0)
    floor = {bytes, seconds};
  return floor;
}

TransferResult HttpTransfer(const std::string& url, const std::filesystem::path& target,
                            const std::string& agent, const TransferProgress& progress) {
  static CurlGlobal global;
  TransferResult result;
  const std::filesystem::path part = target.string() + ".part";
  Sink sink;
  sink.fd = ::open(part.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (sink.fd < 0) {
    result.error = part.string() + ": " + std::strerror(errno);
    return result;
  }

  std::unique_ptr<CURL, EasyDeleter> easy(curl_easy_init());
  std::unique_ptr<CURLM, MultiDeleter> multi(curl_multi_init());
  char error_text[CURL_ERROR_SIZE] = {};
  CURL* c = easy.get();
  curl_easy_setopt(c, CURLOPT_URL, url.c_str());
  curl_easy_setopt(c, CURLOPT_USERAGENT, agent.c_str());
  curl_easy_setopt(c, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(c, CURLOPT_MAXREDIRS, 10L);
  // Only the web: an address in a downloaded list must not reach local files or other services.
  curl_easy_setopt(c, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(c, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(c, CURLOPT_FAILONERROR, 1L);
  curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT, 30L);
  // A server that sends next to nothing for a minute is given up, as a person would.
  const SpeedFloor floor = TransferSpeedFloor();
  curl_easy_setopt(c, CURLOPT_LOW_SPEED_LIMIT, floor.bytes_per_second);
  curl_easy_setopt(c, CURLOPT_LOW_SPEED_TIME, floor.seconds);
  curl_easy_setopt(c, CURLOPT_BUFFERSIZE, 256L * 1024L);
  curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, WriteBody);
  curl_easy_setopt(c, CURLOPT_WRITEDATA, &sink);
  curl_easy_setopt(c, CURLOPT_ERRORBUFFER, error_text);
  curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
  curl_multi_add_handle(multi.get(), c);

  auto report = [&]() {
    curl_off_t received = 0, total = -1;
    curl_easy_getinfo(c, CURLINFO_SIZE_DOWNLOAD_T, &received);
    curl_easy_getinfo(c, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &total);
    return !progress || progress(received, total > 0 ? total : 0);
  };

  bool stopped = false;
  CURLcode code = CURLE_OK;
  auto last_report = Clock::now();
  for (;;) {
    int running = 0;
    if (curl_multi_perform(multi.get(), &running) != CURLM_OK) {
      code = CURLE_RECV_ERROR;
      break;
    }
    if (running == 0) {
      int left = 0;
      CURLMsg* m = curl_multi_info_read(multi.get(), &left);
      code = m && m->msg == CURLMSG_DONE ? m->data.result : CURLE_RECV_ERROR;
      break;
    }
    if (Clock::now() - last_report >= kProgressEvery) {
      last_report = Clock::now();
      if (!report()) {
        stopped = true;
        break;
      }
    }
    curl_multi_poll(multi.get(), nullptr, 0, kPollMs, nullptr);
  }
  // The last word, unless the user stopped: a Stop pressed after the last block comes too late.
  if (!stopped && code == CURLE_OK) report();
  curl_multi_remove_handle(multi.get(), c);

  const bool closed = ::close(sink.fd) == 0;
  std::error_code ec;
  if (stopped) {
    result.outcome = TransferOutcome::Stopped;
    result.error = "stopped";
  } else if (code != CURLE_OK) {
    result.outcome = OutcomeOf(code);
    result.error = sink.write_errno ? part.string() + ": " + std::strerror(sink.write_errno)
                   : error_text[0]  ? std::string(error_text)
                                    : std::string(curl_easy_strerror(code));
  } else if (!closed) {
    result.error = part.string() + ": " + std::strerror(errno);
  } else {
    std::filesystem::rename(part, target, ec);
    if (!ec) {
      result.outcome = TransferOutcome::Done;
      return result;
    }
    result.error = target.string() + ": " + ec.message();
  }
  std::filesystem::remove(part, ec);
  return result;
}

}  // namespace vardolin
