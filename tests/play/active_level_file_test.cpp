// The marker's text: what the activation writes must read back, and whatever a crash or a
// person left in the file must read without harm.
#include "play/active_level_file.h"

#include <gtest/gtest.h>

namespace vardolin {
namespace {

ActiveLevelTexts Texts() {
  return {"notice one",  "notice two",      "notice three", "Level code:",
          "Level name:", "Replaced files:", "Level files:", "Level state:"};
}

TEST(ActiveLevelFile, HeadAndListsAreTheEightLinesInOrder) {
  const std::string text = FormatActiveLevelHead(Texts(), 12, "  Lara's Home  ") +
                           FormatActiveLevelLists(Texts(), {"\\load.bmp"},
                                                  {"\\data\\x.tr4", "\\audio\\y.wav", "\\z.txt"});
  EXPECT_EQ(text,
            "notice one\r\nnotice two\r\nnotice three\r\n\r\nLevel code:0012#\r\n"
            "Level name:Lara's Home#\r\nReplaced files:\\load.bmp#\r\n"
            "Level files:\\data\\x.tr4|\\audio\\y.wav|\\z.txt#\r\n");
}

TEST(ActiveLevelFile, FieldsReadBack) {
  struct Case {
    std::string marker;
    std::string key;
    std::string value;
  };
  const std::string full = FormatActiveLevelHead(Texts(), 7, "Name") +
                           FormatActiveLevelLists(Texts(), {}, {"\\a.txt", "\\data\\b.tr4"});
  const std::vector<Case> cases = {
      {full, "LEVEL CODE:", "0007"},                                    // keys ignore case
      {FormatActiveLevelHead(Texts(), 7, "Name"), "Level files:", ""},  // head only: a crash
      {"Level code:  42  ", "Level code:", "42"},  // no closing '#': up to the end
      // A '#' in a name cuts the name, and nothing else: the code stands before it.
      {FormatActiveLevelHead(Texts(), 3, "A#B"), "Level name:", "A"},
      {FormatActiveLevelHead(Texts(), 3, "A#B"), "Level code:", "0003"},
      // A new state takes the old one's place; the lists stay.
      {WithMarkerState(Texts(), WithMarkerState(Texts(), full, "leaving"), "complete"),
       "Level state:", "complete"},
      {WithMarkerState(Texts(), WithMarkerState(Texts(), full, "leaving"), "complete"),
       "Level files:", "\\a.txt|\\data\\b.tr4"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(ReadMarkerField(c.marker, c.key), c.value) << c.marker << " / " << c.key;
}

}  // namespace
}  // namespace vardolin
