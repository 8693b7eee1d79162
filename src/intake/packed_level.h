#pragma once
// The packed level archive: one file that holds a level's files behind a directory, or only
// the directory while the contents live beside it in a store folder. One routine with an
// operation number does all work on it; every change of an archive with its contents inside
// is written to a temporary file that replaces the archive in the last step.

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "intake/packed_level_directory.h"

namespace vardolin {

class ByteSource;
class Program;

// The numbers of ArchiveOperation.
enum ArchiveOp : int {
  kArchiveCreate = 1,
  kArchiveAdd = 2,
  kArchiveRemove = 3,
  kArchiveTakeOne = 4,
  kArchiveTakeAll = 5,
  kArchiveReplace = 6,
  kArchiveReadDirectory = 7,
  kArchiveCheck = 8,
  kArchiveCreateExternal = 9,
  kArchiveMoveOut = 10,
  kArchiveMoveIn = 11,
  kArchiveAddFolder = 12,
  kArchiveDelete = 13,
  kArchiveWriteDirectory = 14,
};

class FileArchive {
 public:
  explicit FileArchive(Program& program) : program_(program) {}

  // Runs one operation on `archive`; `directory` is read from the archive by every operation
  // but 1, 9 and 14, and holds the archive's directory afterwards. The meaning of `source`,
  // `target` and `flag` depends on the operation. True on success; otherwise
  // LastArchiveError() tells why, and the log and an error box have said it.
  bool ArchiveOperation(const std::filesystem::path& archive, int operation,
                        const std::string& source, const std::string& target,
                        ArchiveDirectory& directory, bool flag = false);
  const std::string& LastArchiveError() const { return error_; }

 private:
  // A piece of the new archive's contents: bytes of the old archive, or a whole file.
  struct Piece {
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
    std::filesystem::path file;
  };
  struct RewriteTexts {
    std::int32_t temporary, open_failed, copy_failed, rename_failed;
  };

  bool Fail(std::int32_t id, const std::string& tail = {},
            const std::vector<std::string>& values = {});
  bool Read(const std::filesystem::path& archive, ArchiveDirectory& directory);
  std::filesystem::path StoreFolderOf(const std::filesystem::path& archive,
                                      const std::string& stored) const;
  bool WriteDirectory(const std::filesystem::path& archive, ArchiveDirectory& directory);
  bool SafeRewrite(const std::filesystem::path& archive, ArchiveDirectory& directory,
                   const std::vector<Piece>& pieces, const RewriteTexts& texts);
  bool TakeEntry(const std::filesystem::path& archive, const ArchiveDirectory& directory,
                 std::size_t index, const std::filesystem::path& destination);
  std::filesystem::path SpreadDestination(const std::filesystem::path& folder,
                                          const std::string& name, bool external) const;

  bool Create(const std::filesystem::path& archive, ArchiveDirectory& directory, bool external);
  bool Add(const std::filesystem::path& archive, const std::string& source,
           ArchiveDirectory& directory);
  bool Remove(const std::filesystem::path& archive, const std::string& name,
              ArchiveDirectory& directory);
  bool TakeOne(const std::filesystem::path& archive, const std::string& name,
               const std::string& target, const ArchiveDirectory& directory);
  bool TakeAll(const std::filesystem::path& archive, const std::string& target,
               const ArchiveDirectory& directory);
  bool Replace(const std::filesystem::path& archive, const std::string& source,
               const std::string& target, ArchiveDirectory& directory, bool take_name);
  bool Check(const std::filesystem::path& archive, const ArchiveDirectory& directory);
  bool MoveOut(const std::filesystem::path& archive, ArchiveDirectory& directory);
  bool MoveIn(const std::filesystem::path& archive, ArchiveDirectory& directory);
  bool AddFolder(const std::filesystem::path& archive, const std::string& folder,
                 ArchiveDirectory& directory);

  Program& program_;
  std::string error_;
};

}  // namespace vardolin
