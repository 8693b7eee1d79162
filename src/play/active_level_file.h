#pragma once
// The text of the marker that names the level standing in the editor folder. Pure text work:
// the activation writes the head before it copies anything and the lists afterwards, so a marker
// cut short by a crash still names its level and simply reads with empty lists.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

// The wordings the marker is written with; the keys are read back with the same texts.
struct ActiveLevelTexts {
  std::string notice1, notice2, notice3;
  std::string code_key;      // "Level code:"
  std::string name_key;      // "Level name:"
  std::string replaced_key;  // "Replaced files:"
  std::string files_key;     // "Level files:"
  std::string state_key;     // "Level state:"
};

// Lines 1 to 6: the notice, a blank line, the code as "0000" and the trimmed name, each field
// closed by '#', each line by CR LF.
std::string FormatActiveLevelHead(const ActiveLevelTexts& texts, std::int32_t code,
                                  std::string_view name);
// Lines 7 and 8: the two lists of paths relative to the editor folder ("\data\x.tr4"), joined
// by '|'.
std::string FormatActiveLevelLists(const ActiveLevelTexts& texts,
                                   const std::vector<std::string>& replaced,
                                   const std::vector<std::string>& files);
// The marker with its state line (key and value) set to `state`: a line that stood is replaced,
// else the line is added at the end.
std::string WithMarkerState(const ActiveLevelTexts& texts, std::string_view marker,
                            std::string_view state);
// The value behind `key` (case ignored) up to the next '#', trimmed; empty when the key is
// absent or empty.
std::string ReadMarkerField(std::string_view marker, std::string_view key);
// The code of a code field: none when the field is empty or not a number.
std::optional<std::int32_t> ParseMarkerCode(std::string_view value);
// The entries of a list field, blanks around them dropped and empty entries skipped.
std::vector<std::string> SplitMarkerList(std::string_view value);

}  // namespace vardolin
