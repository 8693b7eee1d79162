#pragma once
// Path and string helpers that never touch the disk. The program's texts carry path fragments
// written with '\' while Linux paths use '/': every helper here takes either as a separator.

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

// The text behind the last '/', '\' or ':'; the whole text when none occurs.
std::string ExtractFileName(std::string_view path);
// The last dot of the file name and what follows it; empty when the name has no dot. A dot in a
// folder name is not an extension.
std::string ExtractExtension(std::string_view path);
// The text before the last '/' or '\'; empty when there is none.
std::string ExtractFolder(std::string_view path);
// The text before the last dot of the file name; the whole text when the name has no dot.
std::string RemoveExtension(std::string_view name);
// ExtractFileName, then RemoveExtension.
std::string ExtractBaseName(std::string_view path);
// The name with its last extension replaced by `extension` (given with its dot); a name without
// extension gets it appended.
std::string ChangeExtension(std::string_view name, std::string_view extension);
// The text behind the last '/' or '\'.
std::string ExtractUrlFileName(std::string_view url);
// The text between "//" and the next '/'; the whole text when "//" is missing.
std::string ExtractUrlHost(std::string_view url);
// Every NUL becomes a blank, then the text is trimmed.
std::string RemoveNulls(std::string_view text);
// Each of / \ < > : ? | and the double quote becomes a blank.
std::string CleanFileName(std::string_view text);
// A pattern or name written as a folder fragment ("\*.dat") without its leading separators,
// as ListFiles and the file services want it.
std::string WithoutLeadingSeparators(std::string_view fragment);

// "1023", "1 Kb", "1.0 Mb", "1.5 Gb": below 1024 the number; then whole Kb; from 1 Mb and 1 Gb
// one decimal.
std::string FormatFileSize(double bytes);

// Indices 0..n-1 ordered by the values with an exchange sort: equal values are never swapped,
// so ties stay in the order the exchanges leave them.
template <typename T>
std::vector<int> SortIndexByValue(const std::vector<T>& values, bool ascending) {
  std::vector<int> index(values.size());
  for (std::size_t i = 0; i < index.size(); ++i) index[i] = static_cast<int>(i);
  for (std::size_t i = 0; i + 1 < index.size(); ++i)
    for (std::size_t j = i + 1; j < index.size(); ++j) {
      const T& a = values[index[i]];
      const T& b = values[index[j]];
      if (ascending ? (b < a) : (a < b)) std::swap(index[i], index[j]);
    }
  return index;
}

// Joins a fragment from the texts ("\files", "\*.zl", "\savegame.", "files\x.dat") onto a
// folder: backslashes become '/', leading separators are dropped. An empty fragment gives the
// folder itself.
std::filesystem::path JoinFragment(const std::filesystem::path& folder, std::string_view fragment);

}  // namespace vardolin
