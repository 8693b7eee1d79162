#pragma once
// A level CD kept as an ISO image file is read straight out of the file through libarchive: no
// mounting, no root. Its layout is the disc's: one folder below the root holds the LEVEL_
// folders.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

struct archive;

namespace vardolin {

struct ImageArchiveFree {
  void operator()(archive* a) const;
};
// An ISO image open for reading through libarchive.
using ImageArchive = std::unique_ptr<archive, ImageArchiveFree>;
// Null, with the reader's reason in `error`, when the image can't be opened.
ImageArchive OpenImageArchive(const std::filesystem::path& image, std::string& error);
// An entry's name as the image gives it, without "./" in front or slashes at either end.
std::string ImageEntryName(std::string name);

struct ImageLevel {
  bool readable = false;
  std::string error;   // why the image can't be read; empty when readable
  std::string folder;  // "Levels1/LEVEL_0012" ('/' separated), empty when the image lacks it
};

// Looks for the level's folder one folder below the image's root, as FindLevelOnCd does on a
// disc. A damaged image (or no image at all) is not readable.
ImageLevel FindLevelInImage(const std::filesystem::path& image, std::int32_t code);

// The codes of the levels whose files folder (`files`, a name) holds a file matching `pattern`,
// one folder below the image's root. False when the image can't be read.
bool ListLevelsInImage(const std::filesystem::path& image, const std::string& files,
                       const std::string& pattern, std::vector<std::int32_t>& codes);

// Writes the files below `folder_in_image` of the image into `target`, keeping their relative
// names; every name goes through SafeJoin. False with `error` when the image is damaged (the
// reader's reason) or a file can't be written (its path).
// `take`, when given, picks the files and folders by their relative name ('/' separated); the
// others are passed over.
bool ExtractImageFolder(const std::filesystem::path& image, const std::string& folder_in_image,
                        const std::filesystem::path& target, std::string& error,
                        const std::function<bool(const std::string& relative)>& take = {});

// The folders and the files of the image's root. `file_pattern` picks the first file whose bytes
// come into `file` (case ignored); an empty pattern reads none. False when the image can't be
// read.
bool ReadImageRoot(const std::filesystem::path& image, const std::string& file_pattern,
                   std::vector<std::string>& folders, std::string& file);

}  // namespace vardolin
