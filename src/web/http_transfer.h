#pragma once
// One HTTP(S) fetch into a file over libcurl, with no window: the download window and the
// command line both drive it. Redirects are followed, and the file appears under its name only
// when every byte arrived, so a stopped or failed transfer never leaves a half file behind.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

namespace vardolin {

enum class TransferOutcome {
  Done,
  Stopped,      // the progress handler asked to stop
  Unreachable,  // no answer from the server: name unknown, connection refused
  HttpError,    // the server answered with an error status (404 ...)
  Failed,       // broken off on the way: body cut short, stalled, disk full ...
};

struct TransferResult {
  TransferOutcome outcome = TransferOutcome::Failed;
  std::string error;  // why, in a few words, when not Done
  bool ok() const { return outcome == TransferOutcome::Done; }
};

// Bytes received so far and the length the server announced (0 when it announced none).
// Called every few tens of milliseconds, also while no byte comes, and once at the end; a false
// answer stops the transfer.
using TransferProgress = std::function<bool(std::int64_t received, std::int64_t total)>;

// The slowest a transfer may go before it is given up: fewer than `bytes_per_second` on average
// over `seconds`. A server that trickles would otherwise hold the window for ever.
struct SpeedFloor {
  long bytes_per_second = 512;
  long seconds = 60;
};
// The floor above, or the one VARDOLIN_SPEED_FLOOR gives as "BYTES/SECONDS" (the tests' short
// one; a network that needs another).
SpeedFloor TransferSpeedFloor();

// Fetches `url` into `target`. The bytes go to a file beside the target that is renamed over it
// at the end; on any failure that file is removed and a target that stood is left alone.
TransferResult HttpTransfer(const std::string& url, const std::filesystem::path& target,
                            const std::string& agent, const TransferProgress& progress);

}  // namespace vardolin
