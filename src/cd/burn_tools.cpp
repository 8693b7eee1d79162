// The burn engine's tool runs: the image, the burn with and without it, erasing, and the runner
// that reads the tools' text line by line into the progress controls.
#include <algorithm>
#include <system_error>

#include "cd/burn_engine.h"
#include "cd/burn_output.h"
#include "cd/tool_process.h"
#include "foundation/dialogs/progress.h"
#include "foundation/forms/controls.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/strings.h"

namespace vardolin {

namespace fs = std::filesystem;

// What ToolLine needs to know of the run in progress.
struct BurnEngine::ToolRun {
  std::string failure_title;
  std::int32_t failure_code = 0;
  std::string caption;
  bool use_label = false;
  bool use_bar = false;
  bool is_cdrecord = false;
  bool is_report = false;
  std::int32_t command = 0;
  double expected_mb = 0;
  double expected_lines = 0;
  double lines_seen = 0;
  std::string text;
  // The bytes as the tool wrote them, tabs and all.
  std::string raw;
  int exit_code = -1;
  std::string home_prefix;
};

namespace {

std::string CaptionOf(std::int32_t command) {
  switch (command) {
    case cw_CreateIso:
      return "Creation ISO image in progress ...";
    case cw_BurnIso:
      return "Burning CD in progress ...";
    case cw_BurnWithoutIso:
      return "Burning CD without ISO in progress ...";
    case cw_ComputeSizeWithFs:
      return "Computing size ISO files in progress ...";
    case cw_CancellaCdRiscrivibile:
      return "Erasing rewritable CD in progress ...";
    case cw_ReportIsoFileList:
      return "Scanning ISO image in progress ...";
    case cw_VerifyCd:
      return "Cd verify in progress...";
    case cw_ScanBus:
      return "Scanning SCSI bus in progress...";
    default:
      return {};
  }
}

// A graft point's source keeps "=" and "\" as the image maker reads them only when escaped.
std::string GraftLine(const std::string& item) {
  const std::string source = SourceOf(item);
  std::string escaped;
  for (char c : source) {
    if (c == '\\' || c == '=') escaped += '\\';
    escaped += c;
  }
  return TargetOf(item) + "=" + escaped + "\n";
}

std::string Join(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& w : words) text += (text.empty() ? "" : " ") + w;
  return text;
}

// Fixed-width volume texts: trimmed, cut to what the field holds.
std::string Field(const std::string& value, std::size_t width) {
  return Trim(Trim(value).substr(0, width));
}

}  // namespace

std::string MissingToolText(const std::string& tool) {
  return "In application path is missing '" + tool + "' utility";
}

std::int32_t MissingToolCode(const std::string& tool) {
  return tool == kCdrecordTool  ? kBurnNoCdrecord
         : tool == kMkisofsTool ? kBurnNoMkisofs
                                : kBurnNoIsoinfo;
}

bool BurnEngine::ToolItselfFailed() const {
  return ErrorCode != kBurnStopped && ErrorCode != kBurnNoCdrecord && ErrorCode != kBurnNoMkisofs &&
         ErrorCode != kBurnNoIsoinfo;
}

void BurnEngine::ClearProgress() {
  if (ProgressLabel) ProgressLabel->SetCaption("");
  if (ProgressBar) ProgressBar->SetValue(0);
}

bool BurnEngine::WriteListsAndArguments(std::vector<std::string>& arguments) {
  if (IsoPath.empty()) Dispatch(cw_DefaultIsoPath, {}, {});
  const fs::path home = program_.Home();
  const fs::path yes = home / "list_yes.txt", no = home / "list_no.txt";
  std::string yes_text, no_text;
  for (const std::string& item : VetItems) yes_text += GraftLine(item);
  for (const std::string& path : NoItems) no_text += path + "\n";
  for (const auto& [file, text] : {std::pair{yes, yes_text}, std::pair{no, no_text}}) {
    DeleteFileForced(file);
    if (!WriteTextFile(file, text))
      return Fail(kBurnImageFailed, "Creation ISO image failed",
                  "Error preparing ISO image. Error creating file in: " + file.string());
  }
  arguments = {"-gui", "-J", "-R", "-exclude-list", no.string(),    "-path-list", yes.string(),
               "-m",   "..", "-o", IsoPath,         "-graft-points"};
  std::string src;
  const std::pair<const char*, std::string> keys[] = {
      {"APPI=", Field(ApplicationId, 256)},    {"PREP=", Field(Preparer, 128)},
      {"PUBL=", Field(Publisher, 128)},        {"VOLI=", Field(VolumeId, 32)},
      {"VOLS=", Field(VolumeSet, 278)},        {"ABST=", Field(AbstractFile, 37)},
      {"BIBL=", Field(BibliographicFile, 37)}, {"COPY=", Field(CopyrightFile, 37)}};
  for (const auto& [key, value] : keys)
    if (!value.empty()) src += key + value + "\n";
  const fs::path rc = home / "mkiso.src";
  if (!WriteTextFile(rc, src))
    return Fail(kBurnImageFailed, "Creation ISO image failed",
                "Error preparing ISO image. Error creating file in: " + rc.string());
  return true;
}

std::vector<std::string> BurnEngine::CdrecordArguments(const std::string& image) const {
  return {"-v", "speed=" + std::to_string(Speed),
          "-dev=" + std::to_string(Bus) + "," + std::to_string(Target) + "," + std::to_string(Lun),
          image};
}

bool BurnEngine::RunTool(const std::string& tool, const std::vector<std::string>& arguments,
                         double expected_lines, const std::vector<std::string>* piped_into) {
  ErrorCode = kBurnNoError;
  ErrorTitle.clear();
  ErrorText.clear();
  ClearProgress();
  ToolRun run;
  run.command = LastCommand;
  run.is_cdrecord = tool == kCdrecordTool;
  run.is_report = !run.is_cdrecord && tool != kMkisofsTool;
  run.failure_title = run.is_cdrecord        ? "Burning CD failed"
                      : tool == kMkisofsTool ? "Creation ISO image failed"
                                             : "Creation report list failed";
  run.failure_code = run.is_cdrecord ? kBurnFailed
                     : run.is_report ? kBurnReportFailed
                                     : kBurnImageFailed;
  run.caption = CaptionOf(LastCommand);
  run.use_label = ProgressEnabled && ProgressLabel;
  run.use_bar = ProgressEnabled && ProgressBar;
  run.expected_lines = expected_lines;
  run.home_prefix = program_.Home().string() + "/";
  if (LastCommand == cw_BurnWithoutIso) run.expected_mb = TotalSize / 1048576.0;

  ToolProcessRun process;
  process.first.program = FindCdTool(program_, piped_into ? kMkisofsTool : tool);
  process.first.arguments = arguments;
  if (piped_into) {
    process.second.program = FindCdTool(program_, tool);
    process.second.arguments = *piped_into;
  }
  for (const ToolCommand* command : {&process.first, &process.second}) {
    if (!command->program.empty() || (command == &process.second && !piped_into)) continue;
    const std::string missing = command == &process.first && piped_into ? kMkisofsTool : tool;
    return Fail(MissingToolCode(missing), MissingToolText(missing), MissingToolText(missing));
  }
  process.working_folder = program_.Home();
  // The image maker reads its volume texts from the file the engine writes with every image.
  process.environment = {{"GENISOIMAGERC", (program_.Home() / "mkiso.src").string()}};
  ToolLineSplitter splitter;
  auto on_line = [&](const std::string& line) { ToolLine(run, line); };
  process.on_output = [&](std::string_view bytes) {
    run.raw += bytes;
    splitter.Feed(bytes, on_line);
  };
  process.keep_going = [&] {
    if (ProgressEnabled) program_.ui().DoEvents();
    return !StopRequested;
  };
  if (run.use_label) ShowStatus(ProgressLabel, run.caption);
  std::string error;
  const ToolProcessEnd end = RunToolProcesses(process, error, run.exit_code);
  splitter.Finish(on_line);
  ToolOutput = run.text;
  ClearProgress();
  StopRequested = false;
  if (end == ToolProcessEnd::Stopped) return Fail(kBurnStopped, "Operation stopped by user", "");
  if (end == ToolProcessEnd::NotStarted)
    return Fail(run.failure_code, run.failure_title,
                error + "\r\nWith command line: \"" + Join(arguments) + "\"");
  last_raw_output_ = std::move(run.raw);
  last_exit_code_ = run.exit_code;
  return true;
}

void BurnEngine::ToolLine(ToolRun& run, const std::string& given) {
  std::string line = ReplaceAll(given, run.home_prefix, "");
  if (!run.is_cdrecord &&
      (StartsWithNoCase(line, "Using") || StartsWithNoCase(line, "last chance") ||
       line.find("Warning: using inofficial") != std::string::npos))
    return;
  if (line.empty()) {
    if (run.use_label) ProgressLabel->SetCaption(run.caption);
    return;
  }
  if (run.use_label) {
    if (line.find("Total bytes read/written") != std::string::npos) {
      run.caption = "Fixating, lead-in and lead-out ...";
      ProgressLabel->SetCaption(run.caption);
    } else if (ProgressLabel->Caption() != line) {
      ProgressLabel->SetCaption(line);
    }
  }
  run.text += line + "\r\n";
  if (!run.use_bar) return;
  if (run.is_cdrecord) {
    double written = 0, total = 0;
    if ((run.command == cw_BurnIso || run.command == cw_CreateAndBurnIso ||
         run.command == cw_BurnWithoutIso) &&
        TrackProgress(line, run.expected_mb, written, total) && total > 0)
      SetProgressPercent(*ProgressBar, total, std::min(written, total));
  } else if (run.is_report) {
    run.lines_seen += 1;
    if (run.expected_lines > 0)
      SetProgressPercent(*ProgressBar, run.expected_lines,
                         std::min(run.lines_seen, run.expected_lines));
  } else if (const int percent = PercentDone(line); percent >= 0) {
    SetProgressPercent(*ProgressBar, 100, percent);
  }
}

bool BurnEngine::CreateIso() {
  std::vector<std::string> arguments;
  if (!WriteListsAndArguments(arguments)) return false;
  DeleteFileForced(IsoPath);
  if (!RunTool(kMkisofsTool, arguments)) {
    DeleteFileForced(IsoPath);
    return false;
  }
  // An image maker that gave up half-way may leave a part of an image behind: that image must
  // not count as made, whatever its text says.
  if (!FileExists(IsoPath) || last_exit_code_ != 0) {
    DeleteFileForced(IsoPath);
    const std::string errors = MkisofsErrors(ToolOutput);
    return Fail(kBurnImageFailed, "Creation ISO image failed",
                errors.empty() ? Trim(ToolOutput) : errors);
  }
  std::error_code ec;
  TotalSize = static_cast<double>(fs::file_size(IsoPath, ec));
  if (ToolOutput.find("genisoimage:") != std::string::npos)
    Fail(kBurnWarning, "Operation completated without errors but there is a warning",
         RestOfLineBehind(ToolOutput, "genisoimage:"));
  return true;
}

bool BurnEngine::CheckBurnResult() {
  if (BurnSucceeded(ToolOutput, LastSpeed) && last_exit_code_ == 0) return true;
  const std::string errors = CdrecordErrors(ToolOutput);
  return Fail(kBurnFailed, "Burning CD failed",
              errors.empty() ? MkisofsErrors(ToolOutput) : errors);
}

bool BurnEngine::BurnIso() {
  if (IsoPath.empty() || !FileExists(IsoPath))
    return Fail(kBurnFailed, "Burning CD failed", "No ISO image to burn");
  return RunTool(kCdrecordTool, CdrecordArguments(IsoPath)) && CheckBurnResult();
}

bool BurnEngine::BurnWithoutIso() {
  if (!ComputeSize(true)) return false;
  if (ItemsSize == 0)
    return Fail(kBurnWithoutImageFailed, "Burn CD without iso failed",
                "No file to insert in ISO image");
  std::vector<std::string> image_arguments;
  if (!WriteListsAndArguments(image_arguments)) return false;
  // The image goes to standard output, straight into the writer.
  const auto o = std::find(image_arguments.begin(), image_arguments.end(), "-o");
  if (o != image_arguments.end()) image_arguments.erase(o, o + 2);
  if (FindCdTool(program_, kMkisofsTool).empty())
    return Fail(kBurnNoMkisofs, MissingToolText(kMkisofsTool), MissingToolText(kMkisofsTool));
  if (FindCdTool(program_, kCdrecordTool).empty())
    return Fail(kBurnNoCdrecord, MissingToolText(kCdrecordTool), MissingToolText(kCdrecordTool));
  const std::vector<std::string> writer_arguments = CdrecordArguments("-");
  if (!RunTool(kCdrecordTool, image_arguments, 0, &writer_arguments)) {
    if (ToolItselfFailed()) ErrorCode = kBurnWithoutImageFailed;
    return false;
  }
  if (CheckBurnResult()) return true;
  ErrorCode = kBurnWithoutImageFailed;
  ErrorTitle = "Burning CD without ISO image failed";
  return false;
}

bool BurnEngine::Erase(const std::string& how) {
  if (!EqualsNoCase(how, "fast") && !EqualsNoCase(how, "all"))
    return Fail(kBurnInvalidOperand, "Invalid operand for current command",
                "The command CancellaCdRiscrivibile allows only operand 'ALL' or 'FAST'");
  std::vector<std::string> arguments = CdrecordArguments("blank=" + ToLower(how));
  if (!RunTool(kCdrecordTool, arguments)) {
    if (ToolItselfFailed()) ErrorCode = kBurnEraseFailed, ErrorTitle = "Erase CD failed";
    return false;
  }
  if (NumberBehind(ToolOutput, "Blanking time:") >= 4) {
    const long long speed = NumberBehind(ToolOutput, "at speed");
    if (speed >= 0) LastSpeed = static_cast<std::int32_t>(std::min(speed, 9999LL));
    return true;
  }
  return Fail(kBurnEraseFailed, "Erasing CD failed", CdrecordErrors(ToolOutput));
}

bool BurnEngine::FileSystemBytes(double& bytes) {
  std::vector<std::string> arguments;
  if (!WriteListsAndArguments(arguments)) return false;
  const auto o = std::find(arguments.begin(), arguments.end(), "-o");
  if (o != arguments.end()) arguments.erase(o, o + 2);
  arguments.insert(arguments.begin(), "-print-size");
  if (ProgressEnabled) ShowStatus(ProgressLabel, "Computing file system size in progress ...");
  if (!RunTool(kMkisofsTool, arguments)) return false;
  const std::size_t total = ToolOutput.find("Total extents");
  const std::size_t eq = total == std::string::npos ? total : ToolOutput.find('=', total);
  if (eq == std::string::npos) {
    const std::string errors = MkisofsErrors(ToolOutput);
    return Fail(kBurnImageFailed, "Creation ISO image failed",
                errors.empty() ? Trim(ToolOutput) : errors);
  }
  const long long extents = NumberBehind(std::string_view(ToolOutput).substr(eq), "=");
  bytes = extents > 0 ? static_cast<double>(extents) * 11.3 : 0;
  return true;
}

}  // namespace vardolin
