#pragma once
// The open catalogue and its file: loading, saving, the dirty state and the questions around
// leaving a changed catalogue. The catalogue lives in program.catalogue; its path in
// program.prefs.LastArchive.

#include <filesystem>

#include "foundation/catalogue_records.h"

namespace vardolin {

class Program;

// Opens a catalogue. A file that can't be read or that is refused (see catalogue_records.h)
// gives false with the catalogue in memory unchanged; the caller tells the user. When its
// archive folders are gone and the user gives no new one, ClosingDown is set and the result is
// false. A catalogue on a CD (or a CD image opened in its place) is set up on the hard disk
// first, when the CD subsystem has installed its hooks; given up, it leaves the open catalogue.
bool LoadCatalogueFile(Program& program, const std::filesystem::path& path);
// Writes exactly header and records, replacing the file atomically. On success LastArchive
// takes the path and the catalogue counts as saved.
bool SaveCatalogueFile(Program& program, const std::filesystem::path& path);
// To be called after every change of a record or the header: saves at once with AutoSave,
// else marks the catalogue changed.
void CatalogueChanged(Program& program);
// Before a catalogue is left: a change is saved, or given up when the user says so.
void SaveIfChanged(Program& program);
// The open-file dialog and the load; false on Cancel or when nothing was opened.
bool BrowseForCatalogue(Program& program);
// The first of the program folder's catalogue names that no file has taken yet; empty when the
// hundred names are all taken.
std::filesystem::path FreeCatalogueName(const Program& program);
// The record of the base level (code 0) as a new archive holds it.
LevelRecord BaseLevelRecord(Program& program);
// A new, empty archive with only the base level, in a folder the user chooses; saved at once.
bool NewCatalogue(Program& program);
// mnu_Save: saves whatever the dirty flag says; tells the user when it fails.
bool SaveCatalogueMenu(Program& program);
// mnu_SaveAs: asks for a name and saves there; Cancel counts as success.
bool SaveCatalogueAs(Program& program);

// Makes writing the settings first save or give up a changed catalogue.
void InstallCatalogueHooks(Program& program);

}  // namespace vardolin
