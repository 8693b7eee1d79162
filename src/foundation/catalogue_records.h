#pragma once
// The catalogue file: a 546-byte header followed by one 1634-byte record per level, with
// nothing between or behind them. Index 0 of the table is always the base level, code 0.
//
// Reading a damaged file. A file shorter than the header is refused and the catalogue in memory
// is left as it was. A header whose LevelCount is negative is refused too. When LevelCount
// promises more records than the file holds, the whole records that are present are kept, a
// record cut short by the end of the file is dropped, and LevelCount is set to what was kept:
// the user keeps every level the file still holds, and nothing is allocated for records that
// aren't there. Bytes behind the last promised record are ignored.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class ByteReader;
class ByteWriter;

struct CatalogueHeader {
  static constexpr std::size_t kSize = 546;
  static constexpr std::size_t kDirWidth = 256;

  std::int32_t Version = 1;
  std::string MainDir;       // read-only archive folder; on a CD archive it starts with the drive
  std::string SecondaryDir;  // writable archive folder: every level folder on hard disk
  std::int32_t LevelCount = 0;
  std::int32_t CdCount = 0;
  bool CompressFiles = false;
  bool WavInMp3 = false;
  bool OnCd = false;
  double TotalFilesSize = 0;  // over the levels other than level 0
  double TotalUserSize = 0;   // over the levels other than level 0

  bool operator==(const CatalogueHeader&) const = default;
};

struct LevelRecord {
  static constexpr std::size_t kSize = 1634;
  static constexpr std::size_t kTextWidth = 256;
  static constexpr std::size_t kAuthorNameWidth = 80;

  std::string Name;
  std::string Note;
  std::string AuthorName;
  std::string AuthorEmails;  // separated by the character 0
  std::string AuthorSites;   // separated by the character 0
  std::string AuthorNote;
  std::int32_t Code = 0;
  std::int32_t CdNumber = 0;  // 0 on hard disk, else the CD that holds the level's files
  std::string MoreInfoFile;
  std::int32_t FilesSize = 0;
  std::int32_t UserSize = 0;
  bool SizeRefreshPending = false;

  bool operator==(const LevelRecord&) const = default;
};

struct Catalogue {
  CatalogueHeader header;
  std::vector<LevelRecord> levels;  // index 0 = base level

  bool operator==(const Catalogue&) const = default;
};

enum class CatalogueParseStatus {
  Complete,        // every promised record was read
  RecordsMissing,  // the file ended early; the whole records present were kept
  Refused,         // nothing usable; the catalogue was left untouched
};

struct CatalogueParse {
  CatalogueParseStatus status = CatalogueParseStatus::Complete;
  std::int32_t declared_levels = 0;  // LevelCount as the file gave it
  std::string reason;                // why, when not Complete
  bool ok() const { return status != CatalogueParseStatus::Refused; }
};

// Pure: fills `out` from the bytes unless the file is refused. Strings are read in `codepage`.
CatalogueParse ParseCatalogue(std::string_view bytes, Catalogue& out, int codepage = 1252);
// Pure: the file image, exactly header plus one record per entry of `levels`. LevelCount is
// written as the number of entries, so the image is always self-consistent.
std::string SerializeCatalogue(const Catalogue& catalogue, int codepage = 1252);

// One header or record alone, for readers that only need part of a file.
void ReadCatalogueHeader(ByteReader& in, CatalogueHeader& header, int codepage = 1252);
void ReadLevelRecord(ByteReader& in, LevelRecord& record, int codepage = 1252);
void WriteCatalogueHeader(ByteWriter& out, const CatalogueHeader& header, std::int32_t level_count,
                          int codepage = 1252);
void WriteLevelRecord(ByteWriter& out, const LevelRecord& record, int codepage = 1252);

}  // namespace vardolin
