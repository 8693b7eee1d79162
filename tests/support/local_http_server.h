#pragma once
// A small HTTP/1.1 server on the loopback address only, for the download tests and benchmark: each
// path answers with a file, an error, a redirect, a body cut short, a stall, or a length it never
// sends. One request per connection, each on its own thread; the destructor ends stalled ones.

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace vardolin::testing {

class LocalHttpServer {
 public:
  struct Reply {
    int status = 200;
    std::shared_ptr<const std::string> body = std::make_shared<std::string>();
    // The Content-Length told; none: the body's own size. With `no_length` none is told at all.
    std::optional<std::uint64_t> length = {};
    bool no_length = false;
    std::size_t send_only = SIZE_MAX;  // bytes of the body sent before the end below
    bool stall = false;                // after them, hold the connection open without a word
    int trickle_ms = 0;                // or send the rest one byte at a time, this far apart
    std::string location = {};         // Location of a redirect
  };

  LocalHttpServer() {
    listen_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof a;
    if (listen_ < 0 || ::bind(listen_, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0 ||
        ::listen(listen_, 16) != 0 ||
        ::getsockname(listen_, reinterpret_cast<sockaddr*>(&a), &len) || ::pipe2(wake_, O_CLOEXEC))
      std::abort();
    port_ = ntohs(a.sin_port);
    acceptor_ = std::thread([this] { AcceptLoop(); });
  }
  ~LocalHttpServer() {
    ::close(wake_[1]);  // every poll on the other end wakes
    acceptor_.join();
    for (std::thread& t : workers_) t.join();
    ::close(wake_[0]);
    ::close(listen_);
  }

  void Serve(const std::string& path, Reply reply) {
    std::lock_guard<std::mutex> lock(mutex_);
    replies_[path] = std::move(reply);
  }
  void ServeFile(const std::string& path, std::string body) {
    Serve(path, {.body = std::make_shared<std::string>(std::move(body))});
  }
  std::string Url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
  }

 private:
  void AcceptLoop() {
    for (;;) {
      pollfd p[2] = {{listen_, POLLIN, 0}, {wake_[0], POLLIN, 0}};
      if (::poll(p, 2, -1) < 0 || p[1].revents) return;
      const int fd = ::accept4(listen_, nullptr, nullptr, SOCK_CLOEXEC);
      if (fd >= 0) workers_.emplace_back([this, fd] { Answer(fd); });
    }
  }
  static bool SendAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
      const ssize_t n = ::send(fd, data, size, MSG_NOSIGNAL);
      if (n <= 0) return false;
      data += n;
      size -= static_cast<std::size_t>(n);
    }
    return true;
  }
  void Answer(int fd) {
    std::string request;
    char buf[4096];
    while (request.find("\r\n\r\n") == std::string::npos && request.size() < 65536) {
      const ssize_t n = ::recv(fd, buf, sizeof buf, 0);
      if (n <= 0) break;
      request.append(buf, static_cast<std::size_t>(n));
    }
    const std::size_t start = request.find(' ') + 1;
    const std::string path = request.substr(start, request.find(' ', start) - start);
    Reply r{.status = 404};
    {
      std::lock_guard<std::mutex> lock(mutex_);
      if (auto it = replies_.find(path); it != replies_.end()) r = it->second;
    }
    std::string head = "HTTP/1.1 " + std::to_string(r.status) + " X\r\nConnection: close\r\n";
    if (!r.no_length)
      head += "Content-Length: " + std::to_string(r.length.value_or(r.body->size())) + "\r\n";
    if (!r.location.empty()) head += "Location: " + r.location + "\r\n";
    head += "\r\n";
    const std::size_t body = std::min(r.send_only, r.body->size());
    if (SendAll(fd, head.data(), head.size()) && SendAll(fd, r.body->data(), body) && r.stall) {
      pollfd p{wake_[0], POLLIN, 0};
      ::poll(&p, 1, -1);
    }
    pollfd p{wake_[0], POLLIN, 0};
    for (std::size_t i = body; r.trickle_ms > 0 && i < r.body->size(); ++i)
      if (::poll(&p, 1, r.trickle_ms) != 0 || !SendAll(fd, r.body->data() + i, 1)) break;
    ::shutdown(fd, SHUT_RDWR);
    ::close(fd);
  }

  int listen_ = -1;
  int wake_[2] = {-1, -1};
  int port_ = 0;
  std::mutex mutex_;
  std::map<std::string, Reply> replies_;
  std::thread acceptor_;
  std::vector<std::thread> workers_;
};

}  // namespace vardolin::testing
