#pragma once
// The whole-store run that the archive properties ask for when the compression flag changed:
// every level on hard disk goes to the form the flag now asks for, one level at a time through
// ConvertLevelStore, which leaves a level wholly old or wholly new.

#include <string>

#include "foundation/catalogue_records.h"

namespace vardolin {

class Program;
class Label;
class ProgressBar;

struct StoreConversion {
  bool ok = true;
  int levels_converted = 0;
  std::string failed_level;  // name of the level that stopped the run
  double bytes_before = 0;
  double bytes_after = 0;
};

// `old_header` is the header as it was before the change. Levels on CD are not touched. On a
// failure the run stops, the header's flag goes back to its old value (so that changing it
// again finishes the run: levels already in the wanted form stay as they are), and the levels
// converted so far stay converted. Then the sizes are counted afresh and shown (text 1947).
StoreConversion ConvertWholeStore(Program& program, const CatalogueHeader& old_header, Label* label,
                                  ProgressBar* bar);

}  // namespace vardolin
