#include "foundation/catalogue_records.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "archive_fixture.h"
#include "foundation/services/binary_io.h"

namespace vardolin::testing {
namespace {

// Where each field lies in a serialized image, which must read back to the same catalogue.
struct FieldAt {
  std::size_t offset;
  std::size_t width;
  std::string bytes;  // the field's bytes as the file holds them (strings without padding)
};

std::string Le(std::int64_t v, std::size_t width) {
  std::string out;
  for (std::size_t i = 0; i < width; ++i) out += static_cast<char>((v >> (8 * i)) & 0xFF);
  return out;
}

const std::size_t R1 = 546 + 1634;

std::vector<FieldAt> Fields() {
  return {
      {0, 4, Le(1, 4)},                                        // Version
      {4, 256, "/main"},                                       // MainDir
      {260, 256, "/second"},                                   // SecondaryDir
      {516, 4, Le(2, 4)},                                      // LevelCount
      {520, 4, Le(7, 4)},                                      // CdCount
      {524, 2, Le(-1, 2)},                                     // CompressFiles
      {526, 2, Le(0, 2)},                                      // WavInMp3
      {528, 2, Le(-1, 2)},                                     // OnCd
      {530, 8, Le(std::bit_cast<std::int64_t>(123456.0), 8)},  // TotalFilesSize
      {538, 8, Le(std::bit_cast<std::int64_t>(0.5), 8)},       // TotalUserSize
      {R1 + 0, 256, "Second level"},                           // Name
      {R1 + 512, 80, "Designer"},                              // AuthorName
      {R1 + 592, 256, std::string("x@y") + '\0' + "z@w"},      // AuthorEmails
      {R1 + 1104, 256, "Caf\xE9"},                             // AuthorNote in 1252
      {R1 + 1360, 4, Le(42, 4)},                               // Code
      {R1 + 1364, 4, Le(3, 4)},                                // CdNumber
      {R1 + 1368, 256, "info.txt"},                            // MoreInfoFile
      {R1 + 1624, 4, Le(-5, 4)},                               // FilesSize
      {R1 + 1628, 4, Le(99, 4)},                               // UserSize
      {R1 + 1632, 2, Le(-1, 2)},                               // SizeRefreshPending
  };
}

Catalogue FieldsCatalogue() {
  Catalogue c;
  c.header = {1, "/main", "/second", 2, 7, true, false, true, 123456.0, 0.5};
  c.levels.resize(2);
  LevelRecord& r = c.levels[1];
  r.Name = "Second level";
  r.AuthorName = "Designer";
  r.AuthorEmails = std::string("x@y") + '\0' + "z@w";
  r.AuthorNote = "Caf\xC3\xA9";
  r.Code = 42;
  r.CdNumber = 3;
  r.MoreInfoFile = "info.txt";
  r.FilesSize = -5;
  r.UserSize = 99;
  r.SizeRefreshPending = true;
  return c;
}

std::string Padded(const FieldAt& f) {
  return f.bytes + std::string(f.width - f.bytes.size(), ' ');
}

TEST(CatalogueRecords, FieldsLieAtTheirOffsetsAndReadBack) {
  const Catalogue c = FieldsCatalogue();
  const std::string image = SerializeCatalogue(c);
  ASSERT_EQ(image.size(), 546u + 2 * 1634u);
  for (const FieldAt& f : Fields())
    EXPECT_EQ(image.substr(f.offset, f.width), Padded(f)) << "field at " << f.offset;
  Catalogue back;
  EXPECT_EQ(ParseCatalogue(image, back).status, CatalogueParseStatus::Complete);
  EXPECT_EQ(back, c);
  EXPECT_EQ(SerializeCatalogue(back), image);
}

// Files shorter than they claim: whole records are kept, nothing is sized from the count.
TEST(CatalogueRecords, ADamagedFileKeepsWholeRecordsOrIsRefused) {
  using enum CatalogueParseStatus;
  struct Case {
    const char* what;
    std::size_t bytes;         // length of the file
    std::int32_t level_count;  // what its header claims
    CatalogueParseStatus status;
    std::size_t kept;
  };
  const Case cases[] = {
      {"empty file", 0, 0, Refused, 0},
      {"count field cut", 518, 3, Refused, 0},
      {"header only, no levels", 546, 0, Complete, 0},
      {"header only, three promised", 546, 3, RecordsMissing, 0},
      {"last record cut", 546 + 2 * 1634 + 900, 3, RecordsMissing, 2},
      {"huge count", 546 + 3 * 1634, std::numeric_limits<std::int32_t>::max(), RecordsMissing, 3},
      {"negative count", 546 + 3 * 1634, -1, Refused, 0},
      {"exact", 546 + 3 * 1634, 3, Complete, 3},
  };
  const std::string full = SerializeCatalogue(SampleCatalogue(3));
  for (const Case& t : cases) {
    SCOPED_TRACE(t.what);
    std::string image = full.substr(0, std::min(t.bytes, full.size()));
    if (image.size() >= 520) image.replace(516, 4, Le(t.level_count, 4));
    Catalogue c = SampleCatalogue(1, "/untouched");
    const Catalogue before = c;
    CatalogueParse parse = ParseCatalogue(image, c);
    EXPECT_EQ(parse.status, t.status);
    if (t.status == Refused) {
      EXPECT_EQ(c, before);
      EXPECT_FALSE(parse.reason.empty());
      continue;
    }
    ASSERT_EQ(c.levels.size(), t.kept);
    EXPECT_EQ(c.header.LevelCount, static_cast<std::int32_t>(t.kept));
    for (std::size_t i = 0; i < t.kept; ++i) EXPECT_EQ(c.levels[i].Code, static_cast<int>(i));
    EXPECT_EQ(parse.declared_levels, t.level_count);
  }
}

}  // namespace
}  // namespace vardolin::testing
