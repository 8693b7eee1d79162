#pragma once
// Whether a level's files stand whole on its CD or in its image: every file below the folder on
// hard disk is there under the same relative name, with the same bytes. This is what allows the
// files on hard disk to go; anything less keeps them.

#include <filesystem>
#include <string>

namespace vardolin {

struct CopyCheck {
  bool whole = false;
  // What differs, naming the file: empty when whole.
  std::string difference;
};

// Against a folder of a mounted disc (or any folder).
CopyCheck CheckFolderCopy(const std::filesystem::path& copy, const std::filesystem::path& original);
// Against the folder `folder_in_image` ('/' separated, from the image's root) of an ISO image,
// read straight out of the file. A damaged image gives not whole, naming the image.
CopyCheck CheckFolderInImage(const std::filesystem::path& image, const std::string& folder_in_image,
                             const std::filesystem::path& original);

}  // namespace vardolin
