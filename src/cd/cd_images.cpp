#include "cd/cd_images.h"

#include <algorithm>

#include "foundation/program.h"
#include "foundation/services/atomic_file.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view kListFile = "cd_images.txt";

auto SameCd(const std::string& cd) {
  return [&cd](const CdImage& entry) { return EqualsNoCase(entry.cd, cd); };
}

bool WriteList(const Program& program, const std::vector<CdImage>& images) {
  return AtomicWriteFile(CdImageListPath(program), CdImageListText(images));
}

}  // namespace

std::vector<CdImage> ParseCdImageList(std::string_view text) {
  std::vector<CdImage> images;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos || tab == 0 || tab + 1 == line.size()) continue;
    CdImage entry{std::string(line.substr(0, tab)), fs::path(std::string(line.substr(tab + 1)))};
    const auto old = std::find_if(images.begin(), images.end(), SameCd(entry.cd));
    if (old != images.end())
      old->image = entry.image;
    else
      images.push_back(std::move(entry));
  }
  return images;
}

std::string CdImageListText(const std::vector<CdImage>& images) {
  std::string text;
  for (const CdImage& entry : images) {
    // A name or path that would break its line can't be kept.
    const std::string path = entry.image.string();
    if (entry.cd.find_first_of("\t\r\n") != std::string::npos ||
        path.find_first_of("\r\n") != std::string::npos)
      continue;
    text += entry.cd + '\t' + path + '\n';
  }
  return text;
}

fs::path CdImageListPath(const Program& program) {
  return program.Home() / kListFile;
}

std::string CdName(const Program& program, std::int32_t number) {
  return Trim(ExtractFileName(Trim(program.catalogue.header.MainDir))) + std::to_string(number);
}

std::vector<CdImage> ReadCdImageList(const Program& program) {
  std::string text;
  if (!ReadFileIfThere(CdImageListPath(program), text)) return {};
  return ParseCdImageList(text);
}

fs::path RememberedCdImage(const Program& program, std::int32_t number) {
  const std::string cd = CdName(program, number);
  const std::vector<CdImage> images = ReadCdImageList(program);
  const auto found = std::find_if(images.begin(), images.end(), SameCd(cd));
  if (found == images.end() || !FileExists(found->image)) return {};
  return found->image;
}

bool RememberCdImage(const Program& program, std::int32_t number, const fs::path& image) {
  std::vector<CdImage> images = ReadCdImageList(program);
  const std::string cd = CdName(program, number);
  std::error_code ec;
  fs::path absolute = fs::absolute(image, ec);
  if (ec) absolute = image;
  const auto found = std::find_if(images.begin(), images.end(), SameCd(cd));
  if (found != images.end())
    found->image = absolute;
  else
    images.push_back({cd, absolute});
  return WriteList(program, images);
}

bool ForgetCdImage(const Program& program, std::int32_t number) {
  std::vector<CdImage> images = ReadCdImageList(program);
  const auto gone = std::remove_if(images.begin(), images.end(), SameCd(CdName(program, number)));
  if (gone == images.end()) return true;
  images.erase(gone, images.end());
  return WriteList(program, images);
}

}  // namespace vardolin
