#include "web/zl_codec.h"

#include <algorithm>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include <zlib.h>

#include "web/zl_chunk_deflater.h"

namespace vardolin::zl {
namespace {

constexpr unsigned char kMagic[4] = {'V', 'Z', 'L', 0x01};
constexpr std::size_t kChunkSize = 256 * 1024;
constexpr std::size_t kExpandIn = 256 * 1024;
// A large output buffer keeps inflate's copy of its 32 KiB window a small share of the work.
constexpr std::size_t kExpandOut = 1024 * 1024;

// Reads until `n` bytes came or the source ended; -1 on a read error.
std::ptrdiff_t ReadFull(Source& in, unsigned char* buffer, std::size_t n) {
  std::size_t got = 0;
  while (got < n) {
    std::ptrdiff_t r = in.Read(buffer + got, n - got);
    if (r < 0) return -1;
    if (r == 0) break;
    got += static_cast<std::size_t>(r);
  }
  return static_cast<std::ptrdiff_t>(got);
}

// The two bytes of a zlib stream's head: 32 KiB window, deflate, the level class, no
// dictionary, check bits so that the pair is a multiple of 31.
void ZlibHead(int level, unsigned char head[2]) {
  head[0] = 0x78;
  head[1] = level <= 1 ? 0x01 : level <= 5 ? 0x5E : level == 6 ? 0x9C : 0xDA;
}

// Deflates queued chunks on worker threads; the caller collects them in order.
class WorkerPool {
 public:
  WorkerPool(int threads, int level) {
    for (int i = 0; i < threads; ++i) workers_.emplace_back([this, level] { Work(level); });
  }
  ~WorkerPool() {
    {
      std::lock_guard lock(mutex_);
      stop_ = true;
    }
    work_.notify_all();
    for (auto& t : workers_) t.join();
  }
  void Submit(Chunk* chunk, bool* done) {
    {
      std::lock_guard lock(mutex_);
      *done = false;
      queue_.push_back({chunk, done});
    }
    work_.notify_one();
  }
  void Wait(const bool* done) {
    std::unique_lock lock(mutex_);
    finished_.wait(lock, [done] { return *done; });
  }

 private:
  struct Job {
    Chunk* chunk;
    bool* done;
  };
  void Work(int level) {
    ChunkDeflater deflater(level);
    for (;;) {
      Job job;
      {
        std::unique_lock lock(mutex_);
        work_.wait(lock, [this] { return stop_ || !queue_.empty(); });
        if (queue_.empty()) return;
        job = queue_.front();
        queue_.pop_front();
      }
      deflater.Run(*job.chunk);
      {
        std::lock_guard lock(mutex_);
        *job.done = true;
      }
      finished_.notify_all();
    }
  }

  std::mutex mutex_;
  std::condition_variable work_, finished_;
  std::deque<Job> queue_;
  bool stop_ = false;
  std::vector<std::thread> workers_;
};

struct Slot {
  Chunk chunk;
  bool done = true;
};

}  // namespace

ZlResult Pack(Source& in, std::uint64_t length, Sink& out, const ZlOptions& options) {
  int level = std::clamp(options.level, 0, 9);
  unsigned char head[kZlHeadSize + 2];
  std::memcpy(head, kMagic, 4);
  for (int i = 0; i < 8; ++i) head[4 + i] = static_cast<unsigned char>(length >> (8 * i));
  ZlibHead(level, head + kZlHeadSize);
  if (!out.Write(head, sizeof head)) return ZlResult::CannotWriteOutput;

  // Small files are deflated right here: starting threads would cost more than it saves.
  int threads = length > kChunkSize ? std::clamp(options.threads, 1, 8) : 1;
  // The ring outlives the pool whatever happens: workers may hold its chunks until joined.
  std::vector<Slot> ring(threads > 1 ? 2 * threads + 2 : 1);
  std::unique_ptr<WorkerPool> pool;
  std::unique_ptr<ChunkDeflater> inline_deflater;
  if (threads > 1)
    pool = std::make_unique<WorkerPool>(threads, level);
  else
    inline_deflater = std::make_unique<ChunkDeflater>(level);

  std::uint64_t read_total = 0;
  std::size_t issued = 0, written = 0;
  bool all_read = false;
  uLong adler = 1;
  auto result = ZlResult::Ok;

  while (result == ZlResult::Ok) {
    if (!all_read && issued - written < ring.size()) {
      Chunk& c = ring[issued % ring.size()].chunk;
      const Chunk* prev = issued ? &ring[(issued - 1) % ring.size()].chunk : nullptr;
      if (c.in.size() < kWindowSize + kChunkSize) c.in.resize(kWindowSize + kChunkSize);
      // With one slot the previous chunk is this very buffer: take its tail before `dict` moves.
      std::size_t dict = prev ? std::min(kWindowSize, prev->size) : 0;
      if (dict) std::memmove(c.in.data(), prev->Data() + prev->size - dict, dict);
      c.dict = dict;
      std::size_t want =
          static_cast<std::size_t>(std::min<std::uint64_t>(kChunkSize, length - read_total));
      if (ReadFull(in, c.in.data() + c.dict, want) != static_cast<std::ptrdiff_t>(want)) {
        result = ZlResult::CannotReadInput;
        break;
      }
      read_total += want;
      c.size = want;
      c.last = all_read = read_total == length;
      if (pool)
        pool->Submit(&c, &ring[issued % ring.size()].done);
      else
        inline_deflater->Run(c);
      ++issued;
      continue;
    }
    if (written == issued) break;
    Slot& slot = ring[written % ring.size()];
    if (pool) pool->Wait(&slot.done);
    if (!out.Write(slot.chunk.out.data(), slot.chunk.out_size)) {
      result = ZlResult::CannotWriteOutput;
      break;
    }
    adler = adler32_combine(adler, slot.chunk.adler, static_cast<z_off_t>(slot.chunk.size));
    ++written;
    if (options.progress)
      options.progress(std::min<std::uint64_t>(written * kChunkSize, length), length);
  }
  pool.reset();  // joins the workers before the ring goes away
  if (result != ZlResult::Ok) return result;

  // A source that still has bytes grew while we read it; what was packed is consistent with the
  // head, so that is not an error.
  unsigned char tail[4] = {
      static_cast<unsigned char>(adler >> 24), static_cast<unsigned char>(adler >> 16),
      static_cast<unsigned char>(adler >> 8), static_cast<unsigned char>(adler)};
  return out.Write(tail, 4) ? ZlResult::Ok : ZlResult::CannotWriteOutput;
}

ZlResult Expand(Source& in, std::uint64_t in_length, Sink& out, std::uint64_t max_size,
                const ZlOptions& options) {
  unsigned char head[kZlHeadSize];
  std::ptrdiff_t got = ReadFull(in, head, sizeof head);
  if (got < 0) return ZlResult::CannotReadInput;
  if (got < static_cast<std::ptrdiff_t>(sizeof head)) {
    bool prefix = std::memcmp(head, kMagic, std::min<std::size_t>(got, 4)) == 0;
    return prefix ? ZlResult::Truncated : ZlResult::NotPacked;
  }
  if (std::memcmp(head, kMagic, 4) != 0) return ZlResult::NotPacked;
  std::uint64_t length = 0;
  for (int i = 0; i < 8; ++i) length |= std::uint64_t(head[4 + i]) << (8 * i);
  if (length > max_size) return ZlResult::Corrupt;

  z_stream z{};
  if (inflateInit(&z) != Z_OK) return ZlResult::CannotWriteOutput;
  // Small files get small buffers: expansion of many small files stays cheap.
  std::size_t in_size =
      static_cast<std::size_t>(std::clamp<std::uint64_t>(in_length, 64, kExpandIn));
  std::size_t out_size =
      static_cast<std::size_t>(std::clamp<std::uint64_t>(length + 1, 64, kExpandOut));
  std::unique_ptr<unsigned char[]> inbuf(new unsigned char[in_size]);
  std::unique_ptr<unsigned char[]> outbuf(new unsigned char[out_size]);
  std::uint64_t consumed = sizeof head, produced = 0;
  bool eof = false;
  auto result = ZlResult::Ok;
  for (;;) {
    if (z.avail_in == 0 && !eof) {
      std::ptrdiff_t n = in.Read(inbuf.get(), in_size);
      if (n < 0) {
        result = ZlResult::CannotReadInput;
        break;
      }
      eof = n == 0;
      z.next_in = inbuf.get();
      z.avail_in = static_cast<uInt>(n);
      consumed += static_cast<std::uint64_t>(n);
      if (options.progress && n > 0) options.progress(consumed, in_length);
    }
    if (z.avail_in == 0 && eof) {
      result = ZlResult::Truncated;
      break;
    }
    z.next_out = outbuf.get();
    z.avail_out = static_cast<uInt>(out_size);
    int rc = inflate(&z, Z_NO_FLUSH);
    std::size_t n = out_size - z.avail_out;
    produced += n;
    if (produced > length) {
      result = ZlResult::Corrupt;
      break;
    }
    if (n && !out.Write(outbuf.get(), n)) {
      result = ZlResult::CannotWriteOutput;
      break;
    }
    if (rc == Z_STREAM_END) break;
    if (rc != Z_OK && !(rc == Z_BUF_ERROR && z.avail_in == 0)) {
      result = ZlResult::Corrupt;
      break;
    }
  }
  bool trailing = result == ZlResult::Ok && z.avail_in > 0;
  inflateEnd(&z);
  if (result != ZlResult::Ok) return result;
  if (trailing || produced != length) return ZlResult::Corrupt;
  unsigned char extra;
  std::ptrdiff_t more = eof ? 0 : ReadFull(in, &extra, 1);
  if (more < 0) return ZlResult::CannotReadInput;
  return more == 0 ? ZlResult::Ok : ZlResult::Corrupt;
}

}  // namespace vardolin::zl
