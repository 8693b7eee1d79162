#pragma once
// The two thin classes the zip operations drive: ZipClass gathers at most 99 names and writes
// them into a zip, UnzipClass lists or unpacks one zip. They live for one call.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vardolin {
class Program;
}

namespace vardolin {

// An error the classes raise to their caller: a number, where it came from, what it means.
struct ZipClassError {
  std::uint32_t number = 0;
  std::string source;
  std::string description;
  explicit operator bool() const { return number != 0; }
};

inline constexpr std::uint32_t kFileAlreadyInZipList = 0x800407D1;
inline constexpr std::uint32_t kFileNotInZipList = 0x800407D2;
inline constexpr long kZipClassFailed = -99;
inline constexpr int kMaxZipNames = 99;

class ZipClass {
 public:
  bool RecurseFolders = false;
  std::string ZipFileName;
  bool Encrypted = false;           // kept, not used
  bool IncludeSystemFiles = false;  // kept, not used
  std::string RootDirectory = "\\";
  bool UpdatingZip = false;  // an existing zip is always replaced
  // The folder the names are relative to. It stands in for the process's current folder, which
  // a library shared by tests running side by side must not change.
  std::filesystem::path BaseFolder;
  // Called after each file written into the zip.
  std::function<void()> OnFile;

  int ZipFileCount() const { return static_cast<int>(names_.size()); }
  // A name or a pattern ("*.*") relative to BaseFolder; the same name twice, in any case, is
  // an error.
  ZipClassError AddFile(const std::string& sFileName);
  ZipClassError RemoveFile(const std::string& sFileName);
  // Writes the zip: 0 when written, 12 when the names matched nothing (no file is made), and
  // kZipClassFailed for more than 99 names or a failure while writing (no file is left).
  long MakeZipFile();
  std::string GetLastMessage() const { return last_message_; }

 private:
  std::vector<std::string> names_;
  std::string last_message_;
};

class UnzipClass {
 public:
  explicit UnzipClass(Program& program) : program_(program) {}

  bool SpaceToUnderScore = false;
  bool PromptOverwrite = false;  // files are always overwritten without asking
  std::int32_t ExtractList = 0;  // 0 unpacks, 1 only lists
  bool HonorDirectories = true;
  bool OverWriteFiles = true;
  bool CaseSensitive = true;  // names on disk ignore case whatever it says
  std::string ZipFileName;
  std::string ExtractDir;
  // Listing: each entry's name (folders included, separators as stored).
  std::function<void(const std::string& name, bool folder)> OnEntry;
  // Unpacking: after each file written, with the count so far.
  std::function<void(std::int64_t done)> OnFileDone;

  // Lists or unpacks; a non-empty argument replaces the property first. 0 on success.
  long UnZip(const std::string& sZipFileName = {}, const std::string& sExtractDir = {});
  std::string GetLastMessage() const { return last_message_; }

 private:
  Program& program_;
  std::string last_message_;
};

}  // namespace vardolin
