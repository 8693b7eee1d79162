#include "foundation/catalogue_records.h"

#include "foundation/services/binary_io.h"

namespace vardolin {

void ReadCatalogueHeader(ByteReader& in, CatalogueHeader& h, int cp) {
  h.Version = in.I32();
  h.MainDir = in.FixedString(CatalogueHeader::kDirWidth, cp);
  h.SecondaryDir = in.FixedString(CatalogueHeader::kDirWidth, cp);
  h.LevelCount = in.I32();
  h.CdCount = in.I32();
  h.CompressFiles = in.Flag();
  h.WavInMp3 = in.Flag();
  h.OnCd = in.Flag();
  h.TotalFilesSize = in.F64();
  h.TotalUserSize = in.F64();
}

void ReadLevelRecord(ByteReader& in, LevelRecord& r, int cp) {
  constexpr std::size_t w = LevelRecord::kTextWidth;
  r.Name = in.FixedString(w, cp);
  r.Note = in.FixedString(w, cp);
  r.AuthorName = in.FixedString(LevelRecord::kAuthorNameWidth, cp);
  r.AuthorEmails = in.FixedString(w, cp);
  r.AuthorSites = in.FixedString(w, cp);
  r.AuthorNote = in.FixedString(w, cp);
  r.Code = in.I32();
  r.CdNumber = in.I32();
  r.MoreInfoFile = in.FixedString(w, cp);
  r.FilesSize = in.I32();
  r.UserSize = in.I32();
  r.SizeRefreshPending = in.Flag();
}

void WriteCatalogueHeader(ByteWriter& out, const CatalogueHeader& h, std::int32_t level_count,
                          int cp) {
  out.I32(h.Version);
  out.FixedString(h.MainDir, CatalogueHeader::kDirWidth, cp);
  out.FixedString(h.SecondaryDir, CatalogueHeader::kDirWidth, cp);
  out.I32(level_count);
  out.I32(h.CdCount);
  out.Flag(h.CompressFiles);
  out.Flag(h.WavInMp3);
  out.Flag(h.OnCd);
  out.F64(h.TotalFilesSize);
  out.F64(h.TotalUserSize);
}

void WriteLevelRecord(ByteWriter& out, const LevelRecord& r, int cp) {
  constexpr std::size_t w = LevelRecord::kTextWidth;
  out.FixedString(r.Name, w, cp);
  out.FixedString(r.Note, w, cp);
  out.FixedString(r.AuthorName, LevelRecord::kAuthorNameWidth, cp);
  out.FixedString(r.AuthorEmails, w, cp);
  out.FixedString(r.AuthorSites, w, cp);
  out.FixedString(r.AuthorNote, w, cp);
  out.I32(r.Code);
  out.I32(r.CdNumber);
  out.FixedString(r.MoreInfoFile, w, cp);
  out.I32(r.FilesSize);
  out.I32(r.UserSize);
  out.Flag(r.SizeRefreshPending);
}

CatalogueParse ParseCatalogue(std::string_view bytes, Catalogue& out, int cp) {
  CatalogueParse result;
  if (bytes.size() < CatalogueHeader::kSize) {
    result.status = CatalogueParseStatus::Refused;
    result.reason = "the file is shorter than a catalogue header (" + std::to_string(bytes.size()) +
                    " of " + std::to_string(CatalogueHeader::kSize) + " bytes)";
    return result;
  }
  ByteReader in(bytes);
  CatalogueHeader header;
  ReadCatalogueHeader(in, header, cp);
  result.declared_levels = header.LevelCount;
  if (header.LevelCount < 0) {
    result.status = CatalogueParseStatus::Refused;
    result.reason =
        "the header gives a negative level count (" + std::to_string(header.LevelCount) + ")";
    return result;
  }
  // The count is only a promise: size the table from the bytes that are really there.
  const std::size_t present = (bytes.size() - CatalogueHeader::kSize) / LevelRecord::kSize;
  const std::size_t declared = static_cast<std::size_t>(header.LevelCount);
  const std::size_t kept = declared < present ? declared : present;
  std::vector<LevelRecord> levels(kept);
  for (LevelRecord& r : levels) ReadLevelRecord(in, r, cp);
  if (kept < declared) {
    result.status = CatalogueParseStatus::RecordsMissing;
    result.reason = "the file holds " + std::to_string(kept) + " whole level records of the " +
                    std::to_string(declared) + " its header gives";
  }
  header.LevelCount = static_cast<std::int32_t>(kept);
  out.header = std::move(header);
  out.levels = std::move(levels);
  return result;
}

std::string SerializeCatalogue(const Catalogue& c, int cp) {
  ByteWriter out;
  // One allocation for the whole image: large catalogues otherwise pay for repeated growth.
  out.Reserve(CatalogueHeader::kSize + LevelRecord::kSize * c.levels.size());
  WriteCatalogueHeader(out, c.header, static_cast<std::int32_t>(c.levels.size()), cp);
  for (const LevelRecord& r : c.levels) WriteLevelRecord(out, r, cp);
  return out.Take();
}

}  // namespace vardolin
