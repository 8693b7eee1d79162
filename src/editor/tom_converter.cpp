#include "editor/tom_converter.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "editor/text_ids.h"
#include "foundation/data_lists.h"
#include "foundation/dialogs/ask.h"
#include "foundation/platform/linux_platform.h"
#include "foundation/platform/wine_registry.h"
#include "foundation/platform/wine_registry_write.h"
#include "foundation/ports/platform.h"
#include "foundation/ports/ui.h"
#include "foundation/ports/watch_clock.h"
#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/native_programs.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "foundation/services/windows.h"
#include "play/active_level.h"

namespace vardolin {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

constexpr auto kFirstLook = 5s;
constexpr auto kLaterLook = 60s;

std::int64_t SizeOrZero(const fs::path& file) {
  std::error_code ec;
  const auto size = fs::file_size(ResolveCase(file), ec);
  return ec ? 0 : static_cast<std::int64_t>(size);
}

// The source as the converter must be told it. Under Wine that is the Windows path Wine maps it
// to, as winepath gives it; a native stand-in takes the path as it stands.
std::string SourceArgument(Program& program, const fs::path& converter, const fs::path& tom) {
  const fs::path native = fs::absolute(tom);
  if (!IsWindowsProgram(converter)) return native.string();
  StartRequest request{"winepath", {"-w", native.string()}, {}, true};
  request.time_limit_seconds = 60;
  std::string windows;
  const int code = program.platform().RunCapturing(request, [&](const std::string& line) {
    if (windows.empty()) windows = Trim(line);
    return true;
  });
  if (code == 0 && !windows.empty()) return windows;
  // Without winepath, the prefix's own mapping: drive_c as C:, the rest through Z:.
  return NativeToWinePath(DefaultWinePrefix(), native);
}

// A converter that came with a level runs only through Wine; a native one only when the home
// allows its very bytes.
bool MayStart(Program& program, const fs::path& file) {
  if (!FileExists(file)) return false;
  if (IsWindowsProgram(file) || IsAllowedNativeProgram(program.Home(), file)) return true;
  WriteLog(program, "Not started: " + file.string() +
                        " is no Windows program, and the home doesn't allow it to run natively");
  return false;
}

}  // namespace

bool IsWadSetFile(Program& program, const fs::path& path) {
  const std::string name = path.filename().string();
  // The lists come with start-up; a command that needs no start-up builds them here.
  if (!program.lists.Built()) program.lists = BuildDataLists();
  // A blank extension (an empty line of a list or a text) names no file.
  const auto ends_with = [&](const std::string& end) {
    return !end.empty() && EndsWithNoCase(name, end);
  };
  for (const std::string& extension : program.lists.WadFileExtensions)
    if (ends_with(extension)) return true;
  if (!ends_with(program.GetText(text::WadSetSideExtension1)) &&
      !ends_with(program.GetText(text::WadSetSideExtension2)))
    return false;
  const std::string base = ExtractBaseName(name);
  for (std::int32_t id : {text::WadSetMainExtension1, text::WadSetMainExtension2})
    if (FileExists(path.parent_path() / (base + program.GetText(id)))) return true;
  return false;
}

fs::path TomConverterWorkFile(const Program& program, const fs::path& tom) {
  return JoinFragment(EditorFolderPath(program), program.GetText(text::ConverterOutputFolder)) /
         (ExtractBaseName(tom.filename().string()) + program.GetText(text::ConverterWorkExtension));
}

fs::path TomConverterOutput(const Program& program, const fs::path& tom) {
  fs::path file = TomConverterWorkFile(program, tom);
  return file.replace_extension(program.GetText(text::ConverterOutputExtension));
}

bool RunTomConverter(Program& program, const fs::path& tom) {
  const fs::path work = TomConverterWorkFile(program, tom);
  const fs::path output = TomConverterOutput(program, tom);
  DeleteFileForced(ResolveCase(work));
  DeleteFileForced(ResolveCase(output));

  std::vector<std::string> words = SplitCommandWords(program.GetText(text::ConverterCommand));
  if (words.empty()) return false;
  StartRequest request;
  request.program = ResolveCase(JoinFragment(EditorFolderPath(program), words.front()));
  request.arguments.assign(words.begin() + 1, words.end());
  if (!MayStart(program, request.program)) return false;
  request.arguments.push_back(SourceArgument(program, request.program, tom));
  WriteLog(program, "Converter: " + request.program.string() + " " + request.arguments.back());
  std::optional<Process> run = program.platform().Start(request);
  if (!run || !run->Valid()) return false;

  bool first = true;
  std::pair<std::int64_t, std::int64_t> last{-1, -1};
  for (;;) {
    const WaitResult waited =
        program.watch_clock().WaitFor(program.platform(), *run, first ? kFirstLook : kLaterLook);
    if (waited != WaitResult::TimedOut) return FileExists(ResolveCase(output));
    const std::pair<std::int64_t, std::int64_t> sizes{SizeOrZero(work), SizeOrZero(output)};
    if (!first && sizes == last) {
      program.ui().DoEvents();
      if (AskUser(program, program.GetText(text::ConverterStuck, {"\r\n\r\n"}), msg::kYesNo) ==
          msg::kYes) {
        program.platform().End(*run);
        const fs::path result = ResolveCase(output);
        if (FileExists(result) &&
            AskUser(program,
                    program.GetText(text::ConverterKeepPartial,
                                    {"\"" + result.filename().string() + "\"",
                                     FormatFileSize(static_cast<double>(SizeOrZero(result)))}),
                    msg::kYesNo) == msg::kNo)
          DeleteFileForced(result);
        return FileExists(result);
      }
    }
    if (first) {
      // Wine draws a console program's window late; nothing more is needed than to know it.
      std::string title = program.GetText(text::ConverterWindowTitle);
      if (FindWindowByTitle(program.platform(), title, true) != 0)
        WriteLog(program, "Converter window: " + title);
    }
    last = sizes;
    first = false;
  }
}

bool RunTomConverterAsking(Program& program, const fs::path& tom) {
  for (;;) {
    if (RunTomConverter(program, tom)) return true;
    if (AskUser(program,
                program.GetText(text::ConverterFailedRetry,
                                {"\"" + tom.filename().string() + "\"", "\r\n"}),
                msg::kYesNo) == msg::kNo)
      return false;
  }
}

}  // namespace vardolin
