#pragma once
// Questions and small changes over the catalogue table. The pure ones take the Catalogue; those
// that tell the user or save take the Program.

#include <cstdint>
#include <string>

#include "foundation/catalogue_records.h"

namespace vardolin {

class Program;

enum class SizeKind { Files = 1, User = 2 };

// Index of the level with `code`, -1 when it isn't in the table.
int FindLevelIndex(const Catalogue& catalogue, std::int32_t code);
// The highest code in the table plus 1; a table with only the base level gives 1. Codes are
// never reused while a higher one stands.
std::int32_t NextLevelCode(const Catalogue& catalogue);

struct SizeTotals {
  double files = 0;
  double user = 0;
};
// Sums over the levels other than the base level, as the header's totals are kept.
SizeTotals LevelSizeTotals(const Catalogue& catalogue);

// A size in bytes as a record holds it: a whole number, kept within the 32-bit field.
std::int32_t ToRecordSize(double bytes);

// Adds `bytes` to the record's size of that kind and, above index 0, to the header's total.
// An index outside the table changes nothing.
void AddSizeToCatalogue(Catalogue& catalogue, double bytes, int index, SizeKind kind);
// The same, then CatalogueChanged.
void AddLevelSize(Program& program, double bytes, int index, SizeKind kind);

// True, after telling the user, when the level lies on a CD: the caller's operation can't be
// done on it and stops.
bool CheckLevelNotOnCd(Program& program, int index);

// The main window's caption: the catalogue's file name and its level count.
std::string MainTitleText(const Program& program);
// Sets that caption on the main window when there is one.
void UpdateMainTitle(Program& program);

}  // namespace vardolin
