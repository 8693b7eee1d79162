// The burn engine's look at the machine and at what it made: the bus scan, the doors, the
// verification of a burned CD and the reports of the lists and of an image.
#include <algorithm>
#include <chrono>
#include <system_error>
#include <thread>

#include "cd/burn_engine.h"
#include "cd/burn_output.h"
#include "cd/cd_drives.h"
#include "cd/cd_plan.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/ole_date.h"
#include "foundation/services/strings.h"

namespace vardolin {

namespace fs = std::filesystem;

bool BurnEngine::ScanBus() {
  FoundWriters.clear();
  std::vector<std::string> units;
  for (const CdDrive& drive : ListCdDrives(program_.platform()))
    units.push_back(CdDriveUnit(drive));
  if (!RunTool(kCdrecordTool, {"-scanbus"})) {
    if (ToolItselfFailed()) ErrorCode = kBurnNoWriter, ErrorTitle = "Impossible find cd writer";
    return false;
  }
  // The scan is read as the tool wrote it: its lines are told apart by their tabs.
  ToolOutput = last_raw_output_;
  if (ToolOutput.size() < 10)
    return Fail(kBurnNoWriter, "Cd writer has been not found", "Scan bus SCSI failed");
  FoundWriters = ParseScanBus(ToolOutput, units);
  Result = static_cast<double>(FoundWriters.size());
  return true;
}

bool BurnEngine::Door(const std::string& operand, bool open) {
  std::string unit = Trim(operand);
  if (unit.empty() || StartsWithNoCase(unit, "X")) unit = ResolveWriterUnit(WriterUnit);
  if (unit.size() < 2)
    return Fail(kBurnInvalidOperand, "Invalid operand for Open/Close Cd door command",
                "Open/Close_Cd_Door command requires unit letter in two characters format. "
                "\"D:\"");
  if (!door || !door(unit, open))
    return Fail(kBurnInvalidOperand, "Unit letter not correct",
                "Error opening device with unit letter: " + unit);
  return true;
}

bool BurnEngine::VerifyCd(const std::string& how) {
  const bool fast = EqualsNoCase(how, "Fast");
  if (!fast && !EqualsNoCase(how, "All"))
    return Fail(kBurnInvalidOperand, "Invalid argument for current commad",
                "Valid options are: 'FAST' or 'ALL'");
  const std::string unit = ResolveWriterUnit(WriterUnit);
  // Opening and closing the door makes the system read the new disc afresh.
  if (door && door(unit, true)) {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    door(unit, false);
  }
  auto ready = [&] {
    DriveInfo info;
    return GetDriveInfo(program_.platform(), unit, info) && info.ready;
  };
  auto two_tries = [&] {
    if (ready()) return true;
    const auto until = std::chrono::steady_clock::now() + ready_wait;
    while (std::chrono::steady_clock::now() < until) {
      program_.ui().DoEvents();
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return ready();
  };
  bool is_ready = two_tries();
  while (!is_ready && program_.ui().AskUser("Unit " + unit +
                                                " is not ready\r\nTo wait it becomes "
                                                "'ready'?",
                                            msg::kYesNo | msg::kQuestion, "Cd verify") == msg::kYes)
    is_ready = two_tries();
  if (!is_ready)
    return Fail(kBurnFailed, "Error in cd burning", "Unit is not ready: unreadable CD (?)");

  if (fast) {
    std::error_code ec;
    if (fs::directory_iterator(unit, ec) == fs::directory_iterator())
      return Fail(kBurnFailed, "Error in cd burning", "Cd is empty");
    return true;
  }
  if (!ReportItemsFileList("Target")) return false;
  if (ProgressEnabled) ShowStatus(ProgressLabel, "Cd verify: checking all files in progress...");
  const double count = static_cast<double>(ReportItems.size());
  for (std::size_t i = 0; i < ReportItems.size(); ++i) {
    const ReportItem& record = ReportItems[i];
    const fs::path on_cd = fs::path(unit) / record.path.substr(record.path[0] == '/' ? 1 : 0);
    std::string difference;
    std::error_code ec;
    if (!record.path.empty() && record.path.back() == '/') {
      if (!FolderExists(on_cd)) difference = "Folder \"" + record.path + "\" is missing on CD";
    } else if (!FileExists(on_cd)) {
      difference = "Full path\"" + record.path + "\" is missing on CD";
    } else if (fs::file_size(on_cd, ec) != static_cast<std::uintmax_t>(record.size)) {
      difference = "Full path\"" + record.path + "\" has on CD a different size than source";
    }
    if (!difference.empty()) {
      ClearProgress();
      return Fail(kBurnFailed, "Error in cd burning", difference);
    }
    if (ProgressEnabled && ProgressBar) SetProgressPercent(*ProgressBar, count, i + 1.0);
    if (StepStopped()) {
      ClearProgress();
      StopRequested = false;
      return Fail(kBurnStopped, "Cd verify stopped by user");
    }
  }
  ClearProgress();
  return true;
}

bool BurnEngine::ReportItemsFileList(const std::string& kind) {
  const bool target = EqualsNoCase(kind, "Target");
  if (!target && !EqualsNoCase(kind, "Source"))
    return Fail(kBurnInvalidOperand, "Invalid argument for cw_ReportItemsFileList command",
                "Valid operand are \"Target\" or \"Source\"");
  ReportItems.clear();
  if (ProgressEnabled) ShowStatus(ProgressLabel, "Creation report file list in progress ...");
  struct Found {
    std::string path;
    std::size_t item;
  };
  std::vector<Found> found;
  for (std::size_t i = 0; i < VetItems.size(); ++i) {
    const std::string source = SourceOf(VetItems[i]);
    if (FolderExists(source)) {
      FolderTreeWalker walker;
      walker.WalkFolderTree(source);
      for (const fs::path& f : walker.Folders()) found.push_back({f.string() + "/", i});
      for (const fs::path& f : walker.Files()) found.push_back({f.string(), i});
    } else {
      found.push_back({source, i});
    }
    if (ProgressEnabled && ProgressBar)
      SetProgressPercent(*ProgressBar, static_cast<double>(VetItems.size()), i + 1.0);
    if (StepStopped()) {
      ClearProgress();
      StopRequested = false;
      return Fail(kBurnStopped, "Operation stopped by user");
    }
  }
  if (ProgressEnabled) ShowStatus(ProgressLabel, "Formatting report file list in progress ...");
  std::string report;
  for (const Found& f : found) {
    const bool left_out = std::any_of(NoItems.begin(), NoItems.end(), [&](const std::string& n) {
      return EqualsNoCase(f.path, n) ||
             (StartsWithNoCase(f.path, n) && f.path.size() > n.size() && f.path[n.size()] == '/');
    });
    if (left_out) continue;
    ReportItem record;
    const bool is_folder = f.path.back() == '/';
    std::error_code ec;
    if (!is_folder) {
      record.size =
          static_cast<std::int32_t>(std::min<std::uintmax_t>(fs::file_size(f.path, ec), INT32_MAX));
      record.date = FileOleDate(f.path);
    }
    record.path = target ? ItemCdPath(VetItems[f.item], f.path) : f.path;
    if (target && is_folder && record.path.back() != '/') record.path += '/';
    report += ReportLine(record);
    ReportItems.push_back(std::move(record));
  }
  ClearProgress();
  Result = report;
  return true;
}

bool BurnEngine::ReportIsoFileList(const std::string& kind, const std::string& given) {
  const std::string image = given.empty() ? IsoPath : given;
  if (image.empty() || !FileExists(image))
    return Fail(kBurnReportFailed, "It's not possible create report list for current ISO image",
                "Missing ISO image to analyse");
  if (FindCdTool(program_, kIsoinfoTool).empty())
    return Fail(kBurnNoIsoinfo, MissingToolText(kIsoinfoTool));
  const bool flat = EqualsNoCase(kind, "FlatList"), tree = EqualsNoCase(kind, "TreeList"),
             reference = EqualsNoCase(kind, "ReferenceList");
  if (!flat && !tree && !reference)
    return Fail(kBurnInvalidOperand, "Invalid operand",
                "For iso list report you must choose between options: 'FlatList', 'TreeList' or "
                "'ReferenceList'");
  if (ProgressEnabled) ShowStatus(ProgressLabel, "File scan in progress ...");
  if (!RunTool(kIsoinfoTool, {"-f", "-J", "-i", image})) {
    if (ToolItselfFailed()) ErrorTitle = "Error scanning ISO image";
    return false;
  }
  const double expected =
      static_cast<double>(std::count(last_raw_output_.begin(), last_raw_output_.end(), '\n'));
  if (!RunTool(kIsoinfoTool, {"-J", reference ? "-l" : "-f", "-i", image}, expected)) {
    if (ToolItselfFailed())
      ErrorCode = kBurnReportFailed, ErrorTitle = "Creation report list failed from ISO image";
    return false;
  }
  if (ToolOutput.find("isoinfo:") != std::string::npos)
    return Fail(kBurnReportFailed, "Creation report list failed",
                RestOfLineBehind(ToolOutput, "isoinfo:"));
  if (ProgressEnabled) ShowStatus(ProgressLabel, "Formatting report list in progress ...");
  if (flat) {
    Result = ToolOutput;
  } else if (tree) {
    Result = IsoTreeList(ToolOutput);
  } else {
    std::vector<std::string> bad_months;
    ReportItems = ParseIsoLongList(ToolOutput, &bad_months);
    if (!bad_months.empty())
      program_.ui().AskUser("Error scanning month", msg::kError, bad_months.front());
    std::string report;
    for (const ReportItem& r : ReportItems) report += ReportLine(r);
    Result = report;
  }
  ClearProgress();
  return true;
}

}  // namespace vardolin
