#pragma once
// The disc images that stand for level CDs. A level CD may be an ISO file on any disk instead of
// a disc: making CDs writes one image per planned CD, and asking for a CD may be answered with an
// image file. The image last made or chosen for each CD is remembered in the program's home, so
// that the next request for that CD finds it without asking.
//
// A CD is named as the level CD's own folder is: the archive's name (the last component of the
// catalogue's MainDir) followed by the CD number, "Vardolin_archive3". Two archives of other
// names never share an entry, though both have a CD 1.
//
// The list lives in the home as cd_images.txt: one CD a line, its name, a tab and the image's
// full path (UTF-8), LF at the end. Lines without a tab, or with an empty name or path, are
// skipped; a name given twice keeps its last line. The file is replaced atomically.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vardolin {

class Program;

struct CdImage {
  std::string cd;  // archive name and CD number
  std::filesystem::path image;

  bool operator==(const CdImage&) const = default;
};

// Pure: the entries of the file's text, in file order, one per name.
std::vector<CdImage> ParseCdImageList(std::string_view text);
// Pure: the file's text.
std::string CdImageListText(const std::vector<CdImage>& images);

// The file in the home.
std::filesystem::path CdImageListPath(const Program& program);
// The name of CD `number` of the open catalogue's archive.
std::string CdName(const Program& program, std::int32_t number);

std::vector<CdImage> ReadCdImageList(const Program& program);
// The image remembered for that CD of the open archive; empty when none is, or when the file is
// gone.
std::filesystem::path RememberedCdImage(const Program& program, std::int32_t number);
// Remembers `image` (made absolute) for that CD of the open archive, in place of any other; true
// when the list is written.
bool RememberCdImage(const Program& program, std::int32_t number,
                     const std::filesystem::path& image);
// Forgets that CD's image (the file itself stays); true when the list is written or had none.
bool ForgetCdImage(const Program& program, std::int32_t number);

}  // namespace vardolin
