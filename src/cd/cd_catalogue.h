#pragma once
// A catalogue opened from a level CD: from a disc mounted in an optical drive, or from an ISO
// image of the CD opened in its place. Such a catalogue is never used where it lies (nothing is
// written on a CD): the user chooses a full or a compact setup, and the archive is built on the
// hard disk from the CD, under a catalogue of its own.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;

// True when the path lies on a disc mounted in one of the optical drives.
bool IsDriveOfPathCd(Program& program, const std::filesystem::path& path);

// The catalogue's copy in the root of a CD image; false when `path` is no image (by its
// extension) or holds no catalogue.
bool ReadCatalogueInImage(Program& program, const std::filesystem::path& path, std::string& bytes);

// Run once the catalogue at `path` is in memory. `go_on` comes in true and goes false when the
// normal opening must go on. Off a CD, a catalogue whose levels were marked as moved to CD loses
// their files on the disk first. On a CD, the setup is asked for and built: true once the new
// catalogue stands saved and is the open one; false when the user gave it up or it failed
// (told), with `go_on` left true.
bool CheckCdCatalogue(Program& program, const std::filesystem::path& path, bool& go_on);

// Lets the catalogue's opening know catalogues on CD.
void InstallCdCatalogue(Program& program);

}  // namespace vardolin
