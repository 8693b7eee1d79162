#include "audio/dialog_converti_mp3.h"

#include <system_error>

#include "audio/audio_tools.h"
#include "audio/text_ids.h"
#include "audio/wav_converter.h"
#include "audio/wave_header.h"
#include "foundation/dialogs/ask.h"
#include "foundation/ports/ui.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"

namespace vardolin {
namespace fs = std::filesystem;

namespace {

// The steps of one file as the questions name them (texts 423 to 428).
enum Step { kDecode, kToStandard, kForMp3, kWave, kEncode, kCheck };

bool EndsWith(const Program& program, const fs::path& path, std::int32_t id) {
  return EndsWithNoCase(path.string(), program.GetText(id));
}

bool SameFolder(const fs::path& a, const fs::path& b) {
  std::error_code ec;
  return fs::equivalent(a, b, ec) ||
         EqualsNoCase(a.lexically_normal().string(), b.lexically_normal().string());
}

std::string Quoted(const fs::path& path) {
  return "\"" + path.filename().string() + "\"";
}

}  // namespace

Dialog_ConvertiMp3::Dialog_ConvertiMp3(Program& program)
    : Form(program, "Dialog_ConvertiMp3", " Audio conversion in progress") {
  Timer1.SetEnabled(false);
}

void Dialog_ConvertiMp3::Set_Caption_Texts() {
  CaptionFromText(text::ConvertiCaption);
  CaptionFromText(Pul_Stop, text::ConvertiStop);
}

void Dialog_ConvertiMp3::ImpostaValori(const std::vector<fs::path>& VetNomi, int NNomi,
                                       const fs::path& DirDestinazione, int TipoAudio) {
  names_.assign(VetNomi.begin(),
                VetNomi.begin() + std::min<std::size_t>(VetNomi.size(), std::max(NNomi, 0)));
  folder_ = DirDestinazione;
  target_ = TipoAudio;
  StartPending = StopRequested = false;
  ConversionDone = false;
  ConversionMessage.clear();
  Label_Info.SetCaption(program().GetText(text::ConvertiPreparing));
}

void Dialog_ConvertiMp3::Form_Load() {
  // The work starts at the first tick, so that it runs once and inside the shown window.
  StartPending = true;
  Timer1.SetEnabled(true);
}

void Dialog_ConvertiMp3::Timer1_Tick() {
  if (!StartPending) return;
  StartPending = false;
  Timer1.SetEnabled(false);
  ConvertAll();
}

bool Dialog_ConvertiMp3::RunInPlace() {
  Load();
  program().ui().ShowModeless(*this);
  Timer1_Tick();
  if (IsLoaded()) Unload();
  return ConversionDone;
}

void Dialog_ConvertiMp3::End(bool done) {
  ConversionDone = done;
  Timer1.SetEnabled(false);
  Unload();
}

void Dialog_ConvertiMp3::CountStep() {
  ProgrBar_Tutti1.SetValue(std::min(++steps_done_, ProgrBar_Tutti1.Max()));
  Refresh();
}

bool Dialog_ConvertiMp3::PlanSteps(int& steps) {
  Program& p = program();
  steps = 0;
  for (const fs::path& file : names_) {
    if (EndsWith(p, file, text::ConvertiMp3Ending)) {
      steps += 2;
      continue;
    }
    std::string description;
    int kind = 0;
    const int step = ClassifyWave(p, file, target_, description, kind);
    if (step == -1) {
      // Told once, by the caller, as the reason the run ended.
      ConversionMessage =
          p.GetText(text::ConvertiImpossible, {file.filename().string(), description}) +
          TargetName(p, target_) + "]";
      return false;
    }
    if (step != 0) ++steps;
    if (step == 5 && description != p.GetText(text::ConvertiStandardDescription)) ++steps;
  }
  return true;
}

void Dialog_ConvertiMp3::ConvertAll() {
  int steps = 0;
  if (!PlanSteps(steps)) return End(false);
  steps_done_ = 0;
  ProgrBar_Tutti1.SetMax(std::max(steps, 1));
  ProgrBar_Tutti1.SetValue(0);
  for (std::size_t i = 0; i < names_.size(); ++i) {
    program().ui().DoEvents();
    if (StopRequested) {
      ConversionMessage = program().GetText(text::ConvertiStopped);
      return End(false);
    }
    if (!ConvertOne(i)) return End(false);
  }
  Label_Info.SetCaption(program().GetText(text::ConvertiAllDone));
  End(true);
}

bool Dialog_ConvertiMp3::ConvertOne(std::size_t index) {
  Program& p = program();
  const fs::path listed = names_[index];
  const std::string name = listed.filename().string();
  const std::string counter = std::to_string(index + 1) + "\\" + std::to_string(names_.size());
  fs::path current = ResolveCase(listed);
  const std::string out_name = ExtractBaseName(name) + p.GetText(text::ConvertiOutExtension);
  const fs::path final_path = folder_ / out_name;
  ConversionMessage.clear();
  bool temporary = false;
  AudioToolState tool;
  tool.bar = &ProgressBar_Singolo;
  // A failed step asks whether to skip the file; the caller's own file is never lost to it.
  auto failed = [&](const std::string& why, int step) {
    if (temporary) DeleteFileForced(current);
    return AskOnConversionError(name, why, step);
  };

  if (EndsWith(p, listed, text::ConvertiMp3Extension)) {
    current = JoinFragment(folder_, p.GetText(text::ConvertiDecodedFile));
    Label_Info.SetCaption(p.GetText(text::ConvertiDecoding, {Quoted(listed)}) + "[" + counter +
                          "]");
    Refresh();
    const bool decoded = DecodeMp3ToWave(p, tool, listed, current);
    CountStep();
    if (!decoded)
      return AskOnConversionError(
          name, p.GetText(text::ConvertiDecodeFailed) + name + "' : " + tool.error, kDecode);
    temporary = true;
  }

  std::string description;
  int kind = 0;
  int step = ClassifyWave(p, current, target_, description, kind);
  if (step == -1) {
    // A decoded MP3 of an unusual rate or width goes through the standard form first.
    Label_Info.SetCaption(p.GetText(text::ConvertiToStandard, {Quoted(out_name), description}));
    Refresh();
    const fs::path standard =
        JoinFragment(current.parent_path(), p.GetText(text::ConvertiStandardFile));
    std::string message;
    if (!WavConverter(current, standard, 3, message)) return failed(message, kToStandard);
    DeleteFileForced(current);
    current = standard;
    description = p.GetText(text::ConvertiStandardNow);
    step = 2;
  }
  if (step == 0) CountStep();

  if (step > 0) {
    const std::string shown = Quoted(listed) + " " + description + " --> ";
    fs::path work;
    WaveHeader header;
    if (step == 5 && !IsStandardWave(current, &header)) {
      const int mode = header.BitsPerSample == 4 ? 1 : 3;
      Label_Info.SetCaption(p.GetText(text::ConvertiPreparingMp3, {counter}) + shown +
                            p.GetText(text::ConvertiStandardTarget));
      Refresh();
      const fs::path standard = JoinFragment(folder_, p.GetText(text::ConvertiForMp3File));
      std::string message;
      if (!WavConverter(current, standard, mode, message)) return failed(Trim(message), kForMp3);
      // The listed wave stays until its MP3 stands: the encoder may be missing or fail.
      if (temporary) DeleteFileForced(current);
      description = p.GetText(text::ConvertiForMp3Now);
      current = standard;
      temporary = true;
      CountStep();
    }
    if (step >= 1 && step <= 4) {
      Label_Info.SetCaption(p.GetText(text::ConvertiConverting, {counter}) + shown +
                            TargetName(p, target_));
      Refresh();
      work = JoinFragment(folder_, p.GetText(text::ConvertiWorkFile));
      DeleteFileForced(work);
      std::string message;
      if (!WavConverter(current, work, step, message)) return failed(Trim(message), kWave);
      if (!MoveFileOver(work, final_path)) return failed("move failed", kWave);
      if (!SameFolder(current, final_path) && current != final_path) DeleteFileForced(current);
    } else if (step == 5) {
      work = folder_ / (ExtractBaseName(name) + p.GetText(text::ConvertiMp3Out));
      DeleteFileForced(work);
      Label_Info.SetCaption(p.GetText(text::ConvertiEncoding, {counter}) + shown +
                            TargetName(p, target_));
      Refresh();
      const bool encoded = EncodeWaveToMp3(p, tool, current, work);
      if (temporary) DeleteFileForced(current);
      if (!encoded)
        return AskOnConversionError(name, p.GetText(text::ConvertiEncodeFailed, {tool.error}),
                                    kEncode);
    }
    if (!FileExists(work) && !FileExists(final_path))
      return AskOnConversionError(name, p.GetText(text::ConvertiNoResult), kCheck);
    CountStep();
    return true;
  }

  // Already in the wanted form: copied into the target folder under the output's name.
  fs::path placed = current;
  if (!SameFolder(current.parent_path(), folder_)) {
    placed = folder_ / current.filename();
    if (!CopyFileOver(current, placed)) return failed("copy failed", kCheck);
    if (temporary) DeleteFileForced(current);
  }
  if (placed.filename().string() != out_name) {
    if (!MoveFileOver(placed, final_path)) return AskOnConversionError(name, "move failed", kCheck);
  }
  return true;
}

bool Dialog_ConvertiMp3::AskOnConversionError(const std::string& file, std::string message,
                                              int step) {
  Program& p = program();
  if (!message.empty() && message.back() == '\0') message.pop_back();
  const std::string question =
      file + "' : " + message + "\r\n\r\n" + p.GetText(text::ConvertiAskGoOn);
  if (AskUser(p, question, msg::kYesNo) == msg::kYes) return true;
  ConversionMessage = p.GetText(text::ConvertiGaveUp) + p.GetText(text::ConvertiStepDecode + step) +
                      " (" + file + ") : " + message;
  return false;
}

bool RunAudioConversion(Program& program, const std::vector<fs::path>& files,
                        const fs::path& folder, int target, std::string& message) {
  Dialog_ConvertiMp3 dialog(program);
  dialog.ImpostaValori(files, static_cast<int>(files.size()), folder, target);
  const bool done = dialog.RunInPlace();
  message = dialog.ConversionMessage;
  return done;
}

bool RunAudioConversionOnCopies(Program& program, const std::vector<fs::path>& files,
                                const fs::path& folder, int target, const fs::path& work,
                                std::string& message) {
  std::vector<fs::path> copies;
  bool ok = MakeEmptyFolder(work);
  for (const fs::path& file : files) {
    if (!ok) break;
    copies.push_back(work / file.filename());
    ok = CopyFileOver(file, copies.back());
    if (!ok) message = file.string() + ": copy failed";
  }
  if (ok) ok = RunAudioConversion(program, copies, folder, target, message);
  DeleteFolderTree(work);
  return ok;
}

}  // namespace vardolin
