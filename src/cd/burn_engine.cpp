#include "cd/burn_engine.h"

#include <unistd.h>

#include <algorithm>

#include "foundation/platform/linux_platform.h"
#include "foundation/program.h"
#include "foundation/services/drives.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {

namespace fs = std::filesystem;

std::string BurnState::ResultText() const {
  const std::string* text = std::get_if<std::string>(&Result);
  return text ? *text : std::string();
}

double BurnState::ResultNumber() const {
  const double* number = std::get_if<double>(&Result);
  return number ? *number : 0;
}

std::string BurnState::ErrorMessage() const {
  return ErrorTitle + ": " + ErrorText;
}

fs::path FindCdTool(const Program& program, const std::string& name) {
  const fs::path own = program.Home() / "tools" / name;
  if (::access(own.c_str(), X_OK) == 0 && !FolderExists(own)) return own;
  return FindExecutable(name);
}

BurnEngine::BurnEngine(Program& program) : program_(program) {}

bool BurnEngine::Fail(std::int32_t code, std::string title, std::string text) {
  ErrorCode = code;
  ErrorTitle = std::move(title);
  ErrorText = std::move(text);
  return false;
}

bool BurnEngine::BurnCommand(int command, const std::string& operand1,
                             const std::string& operand2) {
  ErrorCode = kBurnNoError;
  ErrorTitle.clear();
  ErrorText.clear();
  ToolOutput.clear();
  LastCommand = command;
  Result = 0.0;
  return Dispatch(command, operand1, operand2);
}

namespace {

bool AllDigits(const std::string& text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

bool BurnEngine::Dispatch(int command, const std::string& op1, const std::string& op2) {
  switch (command) {
    case cw_CreateIso:
      return CreateIso();
    case cw_BurnIso:
      return BurnIso();
    case cw_CreateAndBurnIso:
      return CreateIso() && BurnIso();
    case cw_BurnWithoutIso:
      return BurnWithoutIso();
    case cw_ComputeSize:
    case cw_ComputeSizeWithFs:
      if (!ComputeSize(command == cw_ComputeSizeWithFs)) return false;
      Result = TotalSize;
      return true;
    case cw_CheckDeviceId:
      if (!ParseDevice(DeviceId)) return false;
      Result = DeviceId;
      return true;
    case cw_DefaultIsoPath: {
      double free = 0;
      const std::string best = BestFreeDrive(program_.platform(), free);
      // The root of the biggest disk is often not ours to write; the home then takes the image.
      fs::path folder =
          best.empty() || ::access(best.c_str(), W_OK) != 0 ? program_.Home() : fs::path(best);
      IsoPath = (folder / "imagecd.iso").string();
      Result = IsoPath;
      return true;
    }
    case cw_Init:
      return Init(op1, op2);
    case cw_AddItem:
      return AddItem(op1);
    case cw_AddNoItem:
      return AddNoItem(op1);
    case cw_RemoveItem:
      return RemoveFrom(VetItems, op1, true);
    case cw_RemoveNoItem:
      return RemoveFrom(NoItems, op1, false);
    case cw_CancellaCdRiscrivibile:
      return Erase(op1);
    case cw_ListFolder:
    case cw_ListTree:
      return ListFolder(op1, op2, command == cw_ListTree);
    case cw_GetAbsolutePath:
      if (Trim(op1).empty())
        return Fail(kBurnInvalidOperand, "Invalid operand for GetAbsolutePath command",
                    "Operand is blank. Missing item to convert");
      Result = SourceOf(op1);
      return true;
    case cw_FolderSize:
      if (op1.empty() || !FolderExists(op1))
        return Fail(kBurnInvalidPath, "Path not exist", "Path is not a valid folder");
      Result = FolderSizeBytes(op1, "*");
      return true;
    case cw_GetRelativePath:
    case cw_GetCdPath: {
      if (Trim(op1).empty())
        return Fail(kBurnInvalidOperand, "Invalid operand for GetRelativePath operand",
                    "Operand is blank. Missing item to convert");
      const std::string source = SourceOf(op1);
      const bool whole_item = command == cw_GetCdPath && op1.find('=') != std::string::npos;
      const auto found = std::find_if(VetItems.begin(), VetItems.end(), [&](const auto& item) {
        return EqualsNoCase(SourceOf(item), source);
      });
      if (!whole_item && found == VetItems.end())
        return Fail(kBurnNotFound, "Item not found", "Item \"" + op1 + "\" missing in No Items");
      if (command == cw_GetRelativePath)
        Result = TargetOf(*found);
      else
        Result = ItemCdPath(whole_item ? op1 : *found, source);
      return true;
    }
    case cw_BestUnit: {
      double free = 0;
      Result = BestFreeDrive(program_.platform(), free);
      return true;
    }
    case cw_SpazioLiberoSuUnita:
      if (Trim(op1).empty())
        return Fail(kBurnInvalidOperand, "Invalid operand for SpazioLiberoSuUnita command",
                    "Blank operand. Missing unit letter to examine");
      Result = DiskFreeBytes(program_.platform(), op1);
      return true;
    case cw_AddAutoRun_Inf:
      return AddAutoRunInf(op1, op2);
    case cw_ReportIsoFileList:
      return ReportIsoFileList(op1, op2);
    case cw_ReportItemsFileList:
      return ReportItemsFileList(op1);
    case cw_VerifyCd:
      return VerifyCd(op1);
    case cw_DeleteIso:
      if (!IsoPath.empty() && FileExists(IsoPath)) DeleteFileForced(IsoPath);
      return true;
    case cw_ClearItems:
      VetItems.clear();
      NoItems.clear();
      return true;
    case cw_OpenDoor:
    case cw_CloseDoor:
      return Door(op1, command == cw_OpenDoor);
    case cw_ScanBus:
      return ScanBus();
    case cw_FormattaDimensione: {
      const std::string number = Trim(op1);
      if (!AllDigits(number) || number.size() > 18)
        return Fail(kBurnInvalidOperand, "Invalid operand",
                    "cw_FormattaDimensione requires a numeric value (only digit)");
      const double bytes = std::stod(number);
      Result = bytes < 1024 ? number + " bytes" : FormatFileSize(bytes);
      return true;
    }
    default:
      return true;
  }
}

bool BurnEngine::Init(const std::string& device, const std::string& speed) {
  ApplicationId.clear();
  Publisher.clear();
  VolumeSet.clear();
  AbstractFile.clear();
  BibliographicFile.clear();
  CopyrightFile.clear();
  Preparer = "Tarnbrook";
  VolumeId = "New";
  IsoPath.clear();
  TotalSize = ItemsSize = NoItemsSize = 0;
  VetItems.clear();
  NoItems.clear();
  ProgressEnabled = false;
  StopRequested = false;
  HideToolWindows = true;
  ProgressLabel = nullptr;
  ProgressBar = nullptr;
  ReportItems.clear();
  FolderFiles.clear();
  FolderFolders.clear();

  const std::string wanted = Trim(speed);
  if (EqualsNoCase(wanted, "AUTO"))
    Speed = 0;
  else if (AllDigits(wanted) && wanted.size() < 6)
    Speed = std::stoi(wanted);
  else if (Speed == 0)
    Speed = LastSpeed != 0 ? LastSpeed : 2;

  return ParseDevice(device.empty() ? DeviceId : device);
}

}  // namespace vardolin
