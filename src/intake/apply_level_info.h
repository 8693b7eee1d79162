#pragma once
// What a package says of its level, applied to the level being added: the level info file that
// an export wrote (or an author's install script), the wads and files it asks for, and a patch
// that the URL list knows for its files.

#include <filesystem>
#include <string>

namespace vardolin {

class Program;
class Dialog_NewLevel;

// Reads the info file or the install script of the work folder, fills the form and the record
// from it, deletes it, and does what it asks in order, stopping at the first step that fails;
// without either, offers a known patch.
void ApplyLevelInfo(Dialog_NewLevel& form);

// Each wad the info lists below the editor must stand there; a missing one is asked for.
bool RequireListedWads(Dialog_NewLevel& form);
// Copies files under the names the info asks for, where those don't stand yet.
bool ApplyCopies(Dialog_NewLevel& form);
// Fetches the files the info names on a level CD of the archive.
bool FetchMediaFiles(Dialog_NewLevel& form);
// Copies the wads that the info links to the level sources, under the sources' names.
void ApplyTomLinks(Dialog_NewLevel& form);
// Copies the wad set of `pattern` (from the editor's wads, else from the folder) into the folder
// under the level source's base name, each file with its own extension; a name that stands stays.
void LinkWadForTom(Program& program, const std::filesystem::path& folder,
                   const std::string& pattern, const std::string& baseName);

// The files the info lists stand in the folder with their sizes, and every .tom has its wad.
bool CheckListedFiles(Dialog_NewLevel& form, bool ask);

// Offers each patch of the URL list whose files match the level's, and applies the one taken.
void OfferKnownPatch(Dialog_NewLevel& form);

// Asks for a package the level needs: the user's own copy, a download, or the page in the
// browser. The path of the file, or empty when the user gave none.
std::string AskForZipFile(Program& program, const std::string& description, const std::string& url);

}  // namespace vardolin
