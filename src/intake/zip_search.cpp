#include "intake/zip_search.h"

#include <cstdint>

#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/ole_date.h"
#include "foundation/services/strings.h"
#include "intake/text_ids.h"
#include "web/zip_layer.h"

namespace vardolin {

ZipSearchQuery MakeZipSearchQuery(const Program& program) {
  ZipSearchQuery q;
  q.kind_extensions[0] = {program.GetText(text::SearchKindPackageExt1),
                          program.GetText(text::SearchKindPackageExt2)};
  q.kind_extensions[1] = {program.GetText(text::SearchKindProgramExt)};
  q.zip_extension = program.GetText(text::SearchZipExt);
  return q;
}

namespace {

// Extensions compare without regard to case: a package made on Windows is often ".ZIP".
bool HasExtension(const std::string& path, const std::string& extension) {
  return !extension.empty() && EndsWithNoCase(path, extension);
}

bool OfKind(const ZipSearchQuery& q, const std::string& path) {
  if (q.kind < 0 || q.kind > 1) return true;
  for (const std::string& ext : q.kind_extensions[q.kind])
    if (HasExtension(path, ext)) return true;
  return false;
}

bool HoldsAll(std::string_view text, const std::vector<std::string>& words) {
  for (const std::string& word : words)
    if (!ContainsNoCase(text, word)) return false;
  return true;
}

}  // namespace

bool ZipSearchMatches(const ZipSearchQuery& q, const std::filesystem::path& file) {
  const std::string path = file.string();
  if (!OfKind(q, path)) return false;
  switch (q.mode) {
    case ZipSearchQuery::Mode::All:
      return true;
    case ZipSearchQuery::Mode::ByDate:
      return FileOleDate(file) >= q.earliest;
    case ZipSearchQuery::Mode::ByName:
      break;
  }
  if (HoldsAll(path, q.words)) return true;
  if (!q.inside_zips || !HasExtension(path, q.zip_extension)) return false;
  // Words spread over several entries don't count: one entry name must hold them all. A zip
  // that can't be read lists nothing, and the search goes on.
  std::int32_t count = 0;
  for (const std::string& entry : ListZipEntries(file, count, true))
    if (HoldsAll(entry, q.words)) return true;
  return false;
}

std::vector<std::filesystem::path> SearchFolderTree(const ZipSearchQuery& query,
                                                    const std::filesystem::path& folder,
                                                    const ZipSearchProgress& progress, Ui* ui) {
  FolderTreeWalker walker(ui);
  walker.WalkFolderTree(folder);
  std::vector<std::filesystem::path> found;
  const std::vector<std::filesystem::path>& files = walker.Files();
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (ZipSearchMatches(query, files[i])) {
      found.push_back(files[i]);
      if (progress.found) progress.found(files[i]);
    }
    if (progress.step) progress.step(i + 1, files.size());
    if (progress.stop && progress.stop()) break;
  }
  return found;
}

}  // namespace vardolin
