#pragma once
// The burn engine: writes data CDs, and ISO images of them, with three console tools found in the
// home's tools folder or on PATH: genisoimage makes the image, wodim burns it and scans the bus,
// isoinfo lists an image. Everything goes through one entry, BurnCommand, with a command number
// and two text operands: the caller gets true or false, reads `Result` and, on false, `ErrorCode`
// with `ErrorTitle` and `ErrorText`. The engine's messages are fixed English texts.
//
// Paths are Linux paths: an item is "target=source" or a plain source, where the source is an
// absolute path and the target a folder on the CD that ends in "/" ("/" alone is the root).
// A "\" in a target reads as "/", so "\=" + path puts a file in the root as well. A drive
// "letter" is a mount point; "X:" stands for a writer whose mount point is not known.

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace vardolin {

class Program;
class Label;
class ProgressBar;

// Command numbers of BurnCommand.
inline constexpr int cw_CreateIso = 1;
inline constexpr int cw_BurnIso = 2;
inline constexpr int cw_CreateAndBurnIso = 3;
inline constexpr int cw_BurnWithoutIso = 4;
inline constexpr int cw_ComputeSize = 5;
inline constexpr int cw_CheckDeviceId = 6;
inline constexpr int cw_DefaultIsoPath = 7;
inline constexpr int cw_Init = 8;
inline constexpr int cw_AddItem = 9;
inline constexpr int cw_AddNoItem = 10;
inline constexpr int cw_RemoveItem = 11;
inline constexpr int cw_RemoveNoItem = 12;
inline constexpr int cw_ComputeSizeWithFs = 13;
inline constexpr int cw_CancellaCdRiscrivibile = 14;
inline constexpr int cw_ListFolder = 15;
inline constexpr int cw_ListTree = 16;
inline constexpr int cw_GetAbsolutePath = 17;
inline constexpr int cw_FolderSize = 18;
inline constexpr int cw_GetRelativePath = 19;
inline constexpr int cw_BestUnit = 20;
inline constexpr int cw_SpazioLiberoSuUnita = 21;
inline constexpr int cw_AddAutoRun_Inf = 22;
inline constexpr int cw_ReportIsoFileList = 23;
inline constexpr int cw_ReportItemsFileList = 24;
inline constexpr int cw_VerifyCd = 25;
inline constexpr int cw_GetCdPath = 26;
inline constexpr int cw_DeleteIso = 27;
inline constexpr int cw_ClearItems = 28;
inline constexpr int cw_OpenDoor = 29;
inline constexpr int cw_CloseDoor = 30;
inline constexpr int cw_ScanBus = 31;
inline constexpr int cw_FormattaDimensione = 32;

// Error codes the engine leaves in ErrorCode.
inline constexpr std::int32_t kBurnNoError = 0;
inline constexpr std::int32_t kBurnImageFailed = 1;
inline constexpr std::int32_t kBurnFailed = 2;
inline constexpr std::int32_t kBurnWithoutImageFailed = 3;
inline constexpr std::int32_t kBurnNoWriter = 4;
inline constexpr std::int32_t kBurnStopped = 5;
inline constexpr std::int32_t kBurnInvalidPath = 6;
inline constexpr std::int32_t kBurnCantInsert = 7;
inline constexpr std::int32_t kBurnNotFound = 8;
inline constexpr std::int32_t kBurnEraseFailed = 9;
inline constexpr std::int32_t kBurnInvalidOperand = 10;
inline constexpr std::int32_t kBurnNoCdrecord = 11;
inline constexpr std::int32_t kBurnNoMkisofs = 12;
inline constexpr std::int32_t kBurnAlreadyPresent = 13;
inline constexpr std::int32_t kBurnNoIsoinfo = 14;
inline constexpr std::int32_t kBurnReportFailed = 15;
inline constexpr std::int32_t kBurnWarning = 16;

// One path of a report: size and date are 0 for a folder; the date is an OLE date.
struct ReportItem {
  std::string path;
  std::int32_t size = 0;
  double date = 0;
};

// What a burn command reports: a text, a number or a count.
using BurnResult = std::variant<double, std::string>;

// The engine's state, which callers read and partly write (the volume texts, the progress
// controls, StopRequested, ChosenUnit).
struct BurnState {
  Label* ProgressLabel = nullptr;
  vardolin::ProgressBar* ProgressBar = nullptr;
  bool ProgressEnabled = false;
  bool StopRequested = false;
  bool HideToolWindows = true;

  // Volume texts, cut to the widths of the image's fields when written.
  std::string ApplicationId;
  std::string Publisher;
  std::string Preparer = "Tarnbrook";
  std::string VolumeId = "New";
  std::string VolumeSet;
  std::string AbstractFile;
  std::string BibliographicFile;
  std::string CopyrightFile;

  // The image file; empty until chosen (cw_CreateIso then takes cw_DefaultIsoPath's).
  std::string IsoPath;
  double TotalSize = 0;
  double ItemsSize = 0;
  double NoItemsSize = 0;
  // What goes on the CD ("target=source", stored with "/"), and what is left out (sources).
  std::vector<std::string> VetItems;
  std::vector<std::string> NoItems;

  std::string ErrorTitle;
  std::string ErrorText;
  // All text of the last tool run, one line after another, each ended by CR LF.
  std::string ToolOutput;
  std::int32_t ErrorCode = kBurnNoError;
  std::int32_t LastCommand = 0;
  BurnResult Result = 0.0;

  // The writer: its SCSI address, its mount point ("X:" when unknown), the one the user chose.
  std::int32_t Bus = 0;
  std::int32_t Target = 0;
  std::int32_t Lun = 0;
  std::string WriterUnit;
  std::string ChosenUnit;
  std::int32_t Speed = 0;
  // What the last burn or erase reported; survives cw_Init.
  std::int32_t LastSpeed = 0;
  // bus'target'lun'unit'description, as cw_ScanBus gives them.
  std::string DeviceId;
  std::vector<std::string> FoundWriters;
  std::vector<std::string> FolderFiles;
  std::vector<std::string> FolderFolders;
  std::vector<ReportItem> ReportItems;

  // The text result as a string, a number result as its number (0 for the other kind).
  std::string ResultText() const;
  double ResultNumber() const;
  // "ErrorTitle: ErrorText", as a caller shows a failure.
  std::string ErrorMessage() const;
};

// Opens (true) or closes (false) the door of the optical drive mounted at `unit`; false when
// the drive can't be reached. The real one moves the tray through the kernel's CD-ROM ioctls;
// tests give one that records what it was asked.
using CdDoor = std::function<bool(const std::string& unit, bool open)>;
bool MoveCdDoor(const std::string& unit, bool open);

class BurnEngine : public BurnState {
 public:
  explicit BurnEngine(Program& program);

  // Runs one command (cw_...). An unknown number does nothing and gives true.
  bool BurnCommand(int command, const std::string& operand1 = {}, const std::string& operand2 = {});

  Program& program() const { return program_; }
  CdDoor door = MoveCdDoor;
  // How long a drive that isn't ready is given before it is asked again.
  std::chrono::milliseconds ready_wait{5000};

 private:
  bool Fail(std::int32_t code, std::string title, std::string text = {});
  bool Dispatch(int command, const std::string& op1, const std::string& op2);

  // Lists and sizes (burn_items.cpp).
  bool Init(const std::string& device, const std::string& speed);
  bool ParseDevice(const std::string& device);
  std::string ResolveWriterUnit(const std::string& letter);
  bool AddItem(const std::string& item);
  bool AddNoItem(const std::string& path);
  bool RemoveFrom(std::vector<std::string>& list, const std::string& item, bool by_source);
  bool ComputeSize(bool with_fs);
  bool AddAutoRunInf(const std::string& item, const std::string& option);
  bool ListFolder(const std::string& folder, const std::string& pattern, bool tree);
  bool StepStopped();

  // Tools (burn_tools.cpp).
  struct ToolRun;
  bool CreateIso();
  bool BurnIso();
  bool BurnWithoutIso();
  bool Erase(const std::string& how);
  bool FileSystemBytes(double& bytes);
  bool WriteListsAndArguments(std::vector<std::string>& arguments);
  bool RunTool(const std::string& tool, const std::vector<std::string>& arguments,
               double expected_lines = 0, const std::vector<std::string>* piped_into = nullptr);
  void ToolLine(ToolRun& run, const std::string& line);
  std::vector<std::string> CdrecordArguments(const std::string& image) const;
  bool CheckBurnResult();
  void ClearProgress();
  // After a failed RunTool: true when the tool ran and failed, so that the command may give the
  // failure its own code; false for a stop or a missing tool, which keep theirs.
  bool ToolItselfFailed() const;

  // Scan, verify, reports, doors (burn_scan.cpp).
  bool ScanBus();
  bool Door(const std::string& unit, bool open);
  bool VerifyCd(const std::string& how);
  bool ReportItemsFileList(const std::string& kind);
  bool ReportIsoFileList(const std::string& kind, const std::string& image);

  Program& program_;
  // The last tool run's bytes as written (tabs kept) and its exit code.
  std::string last_raw_output_;
  int last_exit_code_ = -1;
};

// The parts of an item: the source behind the first "=" (trimmed), the target before it ("" when
// there is none); both with "/".
std::string SourceOf(const std::string& item);
std::string TargetOf(const std::string& item);
// Where `full_path` (the item's source or a path below it) lands on the CD: "/" and the path.
std::string ItemCdPath(const std::string& item, const std::string& full_path);

// The console tools, by the names the engine knows them: the home's tools folder first, then
// PATH; empty when neither has it.
std::filesystem::path FindCdTool(const Program& program, const std::string& name);
// "In application path is missing '<tool>' utility", and the code of that failure.
std::string MissingToolText(const std::string& tool);
std::int32_t MissingToolCode(const std::string& tool);
inline constexpr const char* kMkisofsTool = "genisoimage";
inline constexpr const char* kCdrecordTool = "wodim";
inline constexpr const char* kIsoinfoTool = "isoinfo";

}  // namespace vardolin
