#pragma once
// The text work of the help viewer, apart from its windows: the searches in the manual, the
// word a double click picks, and the index the manual's bracketed titles make.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

// Positions are byte offsets from 0. The searches take the text already lowered by
// LowerAscii, so that a 5 MB manual is lowered once per opening and not once per search.
std::string LowerAscii(std::string_view text);
// The first hit of `needle` at or after `from`, without regard to case; npos for none.
std::size_t FindForward(std::string_view lowered_text, std::string_view needle, std::size_t from);
// The last hit that ends at or before `end`; npos for none.
std::size_t FindBackward(std::string_view lowered_text, std::string_view needle, std::size_t end);

struct TextSpan {
  std::size_t start = 0;
  std::size_t length = 0;
};

// The word around the caret (the caret stands before byte `caret`) that a double click takes
// into the search box. A bracketed title ("[Adding a level]", "{Hot keys}") comes whole, without
// its brackets, when the click falls inside it within 30 characters of the opening bracket;
// elsewhere a word ends at the first of "{}[] .=;:,()", a double quote or a line break. Nothing
// when the caret stands before a blank or behind the text.
std::optional<TextSpan> PickHelpWord(std::string_view text, std::size_t caret);

// The rows of the help index: every "[main topic]" in order of appearance, and each
// "{sub-topic}" once (the first spelling of titles equal without regard to case). Titles keep
// their brackets, which makes them findable in the text. An unclosed bracket runs on until the
// next opening one.
struct HelpIndex {
  std::vector<std::string> main_topics;
  std::vector<std::string> sub_topics;
};
HelpIndex BuildHelpIndex(std::string_view text);

}  // namespace vardolin
