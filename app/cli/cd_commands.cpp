#include "cd_commands.h"

#include <filesystem>
#include <ostream>
#include "archive/catalogue_file.h"
#include "archive/level_store.h"
#include "catalogue_commands.h"
#include "cd/burn_engine.h"
#include "cd/cd_image_reader.h"
#include "cd/cd_images.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

int CmdCdReport(Program& program, const std::string& kind, const std::string& image,
                std::ostream& out, std::ostream& err) {
  BurnEngine engine(program);
  if (!engine.BurnCommand(cw_ReportIsoFileList, kind, image)) {
    err << "vardolin-cli: " << engine.ErrorMessage() << " (" << image << ")\n";
    return 1;
  }
  // The engine's reports end their lines as the CD's own system does; a terminal wants LF.
  out << ReplaceAll(engine.ResultText(), "\r\n", "\n");
  return 0;
}

int CmdCdAttach(Program& program, std::int32_t number, const std::string& where, std::ostream& out,
                std::ostream& err) {
  if (number <= 0) {
    err << "vardolin-cli: CD numbers begin at 1\n";
    return 2;
  }
  if (!OpenLastCatalogue(program, err)) return 1;
  std::int32_t code = -1;
  for (const LevelRecord& r : program.catalogue.levels)
    if (r.CdNumber == number) {
      code = r.Code;
      break;
    }
  std::error_code ec;
  const fs::path path = fs::absolute(where, ec);
  if (fs::is_regular_file(path, ec)) {
    const ImageLevel found = FindLevelInImage(path, code);
    if (!found.readable) {
      err << "vardolin-cli: the image " << path.string() << " can't be read: " << found.error
          << "\n";
      return 1;
    }
    if (code >= 0 && found.folder.empty()) {
      err << "vardolin-cli: the image " << path.string() << " doesn't hold level " << code
          << " of CD " << number << "\n";
      return 1;
    }
    if (!RememberCdImage(program, number, path)) {
      err << "vardolin-cli: " << CdImageListPath(program).string() << " was not written\n";
      return 1;
    }
    out << "cd " << number << ": " << path.string() << "\n";
    return 0;
  }
  if (!FolderExists(path)) {
    err << "vardolin-cli: " << path.string() << " is neither an image file nor a folder\n";
    return 1;
  }
  if (code >= 0 && FindLevelOnCd(code, path).empty()) {
    err << "vardolin-cli: " << path.string() << " doesn't hold level " << code << " of CD "
        << number << "\n";
    return 1;
  }
  // A disc in a drive takes the place of an image the CD had before.
  ForgetCdImage(program, number);
  std::string& main_dir = program.catalogue.header.MainDir;
  main_dir = (path / ExtractFileName(Trim(main_dir))).string();
  program.CatalogueDirty = true;
  if (!SaveCatalogueFile(program, program.prefs.LastArchive)) {
    err << "vardolin-cli: the catalogue " << program.prefs.LastArchive << " was not written\n";
    return 1;
  }
  out << "cd " << number << ": " << path.string() << "\n";
  return 0;
}

}  // namespace vardolin
