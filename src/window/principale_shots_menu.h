#pragma once
// The operations of the screenshot menu (mnu_Edit) on the selected shot of the main window.

#include <filesystem>

namespace vardolin {

class Principale;
class Program;

// mnu_Zoom and a double click: the selected image in the one zoom window.
void ZoomSelectedShot(Principale& main);
// The double click on the savegame's picture: the tied shot, or the no-image picture.
void ZoomTiedShot(Principale& main);
// Shows a picture in the zoom window, which is made once and reused.
void ShowZoom(Program& program, const std::filesystem::path& picture);

// mnu_AddScreenshot: copies a chosen picture into the chosen level's shots, dated now.
void AddScreenshot(Principale& main);
// mnu_DeleteShot, mnu_RenameShot, mnu_SaveShot, mnu_ResizeSave, mnu_PropertyScreenShot.
void DeleteShot(Principale& main);
void RenameShot(Principale& main);
void SaveShotCopy(Principale& main);
void ResizeSelectedShot(Principale& main);
void ShowShotProperties(Principale& main);
// mnu_OpenEditor: the selected shot (or the no-image picture) in the graphics program.
void OpenShotInGraphicsProgram(Principale& main);
// Asks for the graphics program and keeps it in the settings; false when the user cancelled.
bool ChooseGraphicsProgram(Program& program);
// mnu_CopyPathInClip.
void CopyShotPath(Principale& main);

// mnu_ScegliImmagine: the user picks a shot, which takes the savegame's file date so that the
// two are tied from now on; other shots of exactly that date move 5 seconds later. True when
// the dates were rewritten, and the caller shows the savegame's picture anew.
bool ChooseImageForSavegame(Principale& main, const std::filesystem::path& savegame);

}  // namespace vardolin
