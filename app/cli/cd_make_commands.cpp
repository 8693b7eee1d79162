#include "cd_make_commands.h"

#include <algorithm>
#include <filesystem>
#include <ostream>

#include "archive/catalogue_ops.h"
#include "catalogue_commands.h"
#include "cd/cd_plan.h"
#include "cd/dialog_muovi_su_cd.h"
#include "cd/remove_moved_levels.h"
#include "foundation/program.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "play/activation.h"
#include "terminal_ui.h"

namespace vardolin {

namespace {

// The form as the window would show it, with the capacity chosen; false after telling why not.
bool PrepareCds(Dialog_MuoviSuCd& form, int mb, std::ostream& err) {
  form.MakeEditorClean = ResetToBaseLevel;
  form.Load();
  if (!form.PrepareForm()) {
    err << "vardolin-cli: level CDs can't be made here\n";
    return false;
  }
  form.Combo_Mb.SetListIndex(form.Combo_Mb.FindData(mb));
  return true;
}

// What the run left: the levels moved and, when their files were to leave, whether they did.
int Finish(Program& program, Dialog_MuoviSuCd& form, bool made, std::ostream& out,
           std::ostream& err) {
  if (!made) {
    err << "vardolin-cli: the level CDs were not made\n";
    return 1;
  }
  for (const CdPlan& plan : form.Plans()) {
    out << "CD " << plan.number << ":";
    for (std::int32_t code : plan.codes) out << " " << code;
    out << "\n";
  }
  for (const std::string& image : form.ImagesMade()) out << "image: " << image << "\n";
  if (program.catalogue.header.OnCd && !RemoveMovedLevels(program)) {
    err << "vardolin-cli: some levels keep their files on disk; run the command again to retry\n";
    return 1;
  }
  return 0;
}

}  // namespace

int CmdCdPlan(Program& program, int mb, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err)) return 1;
  const LevelsToMove levels = MeasureLevelsToMove(program);
  if (levels.indices.empty()) {
    out << "no level lies on hard disk\n";
    return 0;
  }
  std::vector<std::int32_t> codes;
  for (int i : levels.indices) codes.push_back(program.catalogue.levels[i].Code);
  const double capacity = CdCapacityBytes(mb);
  const CdSplit split = SplitLevelsOnCds(codes, levels.sizes, capacity - 2 * kCdMegabyte, capacity,
                                         NextCdNumber(program), CdArchiveName(program));
  for (const CdPlan& plan : split.plans) {
    out << "CD " << plan.number << " (" << plan.folder << ")"
        << (plan.codes.empty() ? ": the catalogue copy only" : "") << "\n";
    for (std::int32_t code : plan.codes) {
      const int index = FindLevelIndex(program.catalogue, code);
      const auto at = std::find(codes.begin(), codes.end(), code) - codes.begin();
      out << "  " << code << "\t" << Trim(program.catalogue.levels[index].Name) << "\t"
          << FormatFileSize(levels.sizes[at]) << "\n";
    }
  }
  return 0;
}

int CmdCdImage(Program& program, TerminalUi& ui, const std::string& folder, int mb,
               std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err)) return 1;
  Dialog_MuoviSuCd form(program);
  if (!PrepareCds(form, mb, err)) return 1;
  form.Combo_Unita.SetListIndex(form.Combo_Unita.FindData(kImageFilesRow));
  form.ImageFolder = std::filesystem::absolute(folder).string();
  // The command is the request: it answers how many CDs to make, and that the levels' files
  // leave the disk once each was found whole in its image.
  ui.AnswerNext("yes");
  ui.AnswerNext("yes");
  form.Pul_Start.Click();
  return Finish(program, form, form.Made, out, err);
}

int CmdCdBurn(Program& program, int speed, int mb, std::ostream& out, std::ostream& err) {
  if (!OpenLastCatalogue(program, err)) return 1;
  Dialog_MuoviSuCd form(program);
  if (!PrepareCds(form, mb, err)) return 1;
  if (form.Engine().FoundWriters.empty()) {
    err << "vardolin-cli: no CD writer was found (cd image FOLDER writes image files instead)\n";
    return 1;
  }
  form.Combo_Unita.SetListIndex(0);
  if (form.Combo_Lettera.ListIndex() < 0 && form.Combo_Lettera.ListCount() > 0)
    form.Combo_Lettera.SetListIndex(0);
  form.Combo_Speed.SetListIndex(std::clamp(speed / 2 - 1, 0, kSpeedRows - 1));
  form.Pul_Start.Click();
  return Finish(program, form, form.Made, out, err);
}

}  // namespace vardolin
