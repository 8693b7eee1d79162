#pragma once
// Single-file packing: one level file in, one `.zl` file out, and back byte for byte.
//
// A `.zl` file is a 12-byte head followed by one zlib stream (RFC 1950) and nothing else:
//
//   offset 0   4 bytes  'V' 'Z' 'L' 0x01      marks the file and the layout's version
//   offset 4   8 bytes  original length, unsigned, little-endian
//   offset 12  ...      zlib stream: 2-byte head, deflate data, Adler-32 of the original
//
// So expansion knows how much must come out, zlib checks every byte through the Adler-32,
// and a file cut short, grown or damaged anywhere is told apart from a good one. Any zlib
// inflater reads the stream after the head.
//
// Packing cuts the file into chunks that two threads deflate at once, each chunk primed with
// the 32 KiB before it so that little ratio is lost. Chunks that don't compress (most of a
// `.tr4` file is already packed textures) are written as stored blocks without spending level
// 9's effort on them. Memory stays bounded whatever the file's size.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vardolin {

enum class ZlResult {
  Ok,
  CannotReadInput,    // missing, unreadable, or changed its length while being read
  CannotWriteOutput,  // the output's folder is missing or not writable, or the disk is full
  NotPacked,          // no `.zl` head: some other kind of file
  Truncated,          // the file ends before its stream does
  Corrupt,            // bad data, wrong checksum, wrong length or bytes after the stream
  NoSpace,            // the head declares more than the output's disk has free: nothing written
};

// A short English name of the result, for the log and test output.
const char* ZlResultName(ZlResult result);

// Bytes done so far and the total, after each chunk: input bytes read for packing, `.zl`
// bytes read for expansion.
using ZlProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

struct ZlOptions {
  int level = 9;    // 0 to 9; chunks that gain nothing are stored at any level
  int threads = 2;  // deflate threads for files bigger than one chunk
  // Flush the output to disk before it replaces anything: wanted when the caller deletes the
  // source next, not for an expansion into a temporary folder.
  bool sync = false;
  ZlProgress progress;
};

inline constexpr std::size_t kZlHeadSize = 12;

// Packs `input` into `output`. The output is written beside under a temporary name and renamed
// into place only when complete, so a failure leaves no output file (and an older one intact).
ZlResult PackFile(const std::filesystem::path& input, const std::filesystem::path& output,
                  const ZlOptions& options = {});
// The original length a `.zl` file's head declares; nothing when it has no `.zl` head.
std::optional<std::uint64_t> ZlDeclaredLength(const std::filesystem::path& input);

// Expands a `.zl` file. Nothing is left at `output` unless every byte checked out, and nothing
// is written when the head declares more than the output's disk has free (NoSpace).
ZlResult ExpandFile(const std::filesystem::path& input, const std::filesystem::path& output,
                    const ZlOptions& options = {});

// Progress of several files: the one the calling thread expands now, and the `.zl` bytes of
// all the files read so far against their total.
using ZlBatchProgress =
    std::function<void(std::size_t file, std::uint64_t done, std::uint64_t total)>;

// Expands each `files[i].first` to `files[i].second`, `threads` files at once with the calling
// thread as one of them: a level's files are many and each stream inflates on one core only.
// `progress` is called on the calling thread alone, so a window may be updated from it. At the
// first failure no further file is begun. Gives the index of the first file that failed
// (`failure` says why), or files.size() when all stand.
std::size_t ExpandFiles(
    const std::vector<std::pair<std::filesystem::path, std::filesystem::path>>& files,
    ZlResult& failure, int threads = 2, const ZlBatchProgress& progress = {});

// The same in memory. Expansion refuses (Corrupt) a head that promises more than `max_size`.
ZlResult PackBytes(std::string_view data, std::string& packed, const ZlOptions& options = {});
ZlResult ExpandBytes(std::string_view packed, std::string& data,
                     std::uint64_t max_size = std::uint64_t(1) << 32);

// The packing control as the forms hold it: set the files, then Compress or Decompress. Both
// answer whether the output file now stands; LastResult says why not.
class ZlibTool {
 public:
  std::string InputFile;
  std::string OutputFile;
  int CompressionLevel = 9;
  // Called after each chunk; forms let their window breathe here.
  ZlProgress Progress;

  bool Compress();
  bool Decompress();
  ZlResult LastResult() const { return last_; }

 private:
  ZlResult last_ = ZlResult::Ok;
};

}  // namespace vardolin
