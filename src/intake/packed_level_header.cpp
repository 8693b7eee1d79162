#include "intake/packed_level_header.h"

#include "foundation/program.h"
#include "foundation/services/files.h"
#include "foundation/services/log.h"
#include "foundation/services/paths.h"
#include "foundation/services/strings.h"
#include "intake/byte_source.h"
#include "intake/packed_level_directory.h"
#include "intake/text_ids.h"

namespace vardolin {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

HeaderParse ParsePackageHeader(ByteSource& source, std::string_view signature,
                               PackageHeader& header) {
  PackageHeader read;
  SourceCursor in(source, 0);
  if (!in.Bytes(6, read.Signature) || signature.size() != 3 ||
      !EqualsNoCase(read.Signature.substr(0, 3), signature) || !IsDigit(read.Signature[3]) ||
      !IsDigit(read.Signature[5]))
    return HeaderParse::NotHeader;
  read.Reserved = in.I32();
  in.Bytes(16, read.Block);
  for (std::int32_t& value : read.Values) value = in.I32();
  if (!in.Ok()) return HeaderParse::Short;
  if (!ReadScrambledString(in, read.Text)) return HeaderParse::BadText;
  read.NameCount = in.I32();
  // Each name takes at least its four-byte count.
  if (!in.Ok() || read.NameCount < 0 ||
      static_cast<std::uint64_t>(read.NameCount) * 4 > in.Remaining())
    return HeaderParse::Short;
  for (std::int32_t i = 0; i < read.NameCount; ++i) {
    std::string name;
    if (!ReadScrambledString(in, name)) return HeaderParse::BadName;
    read.Names.push_back(std::move(name));
  }
  read.Value = in.I32();
  if (!in.Ok()) return HeaderParse::Short;
  header = std::move(read);
  return HeaderParse::Ok;
}

bool ReadPackageHeader(Program& program, const std::filesystem::path& path, PackageHeader& header,
                       bool show) {
  FileSource source(ResolveCase(path));
  PackageHeader read;
  std::int32_t failed = text::HeaderReadFailed;
  switch (ParsePackageHeader(source, program.GetText(text::PackageSignature), read)) {
    case HeaderParse::Ok:
      read.Folder = path.parent_path();
      header = std::move(read);
      return true;
    case HeaderParse::NotHeader:
      return false;
    case HeaderParse::BadText:
      failed = text::HeaderStringFailed;
      break;
    case HeaderParse::BadName:
      failed = text::HeaderNameFailed;
      break;
    case HeaderParse::Short:
      break;
  }
  WriteLog(program, program.GetText(failed) + path.string(), show);
  return false;
}

bool IsAudioTrackName(const Program& program, std::string_view name) {
  const std::string file = ExtractFileName(name);
  const std::string extension = ExtractExtension(file);
  return file.size() == 7 &&
         (EqualsNoCase(extension, program.GetText(text::AudioTrackExtension1)) ||
          EqualsNoCase(extension, program.GetText(text::AudioTrackExtension2))) &&
         IsDigit(file[0]) && IsDigit(file[1]) && IsDigit(file[2]);
}

bool IsSavegameName(const Program& program, std::string_view path, bool anyFolder) {
  if (!anyFolder) {
    const std::filesystem::path folder(ExtractFolder(path));
    const std::filesystem::path editor(program.prefs.EditorFolder);
    if (editor.empty() ||
        !EqualsNoCase(folder.lexically_normal().string(), editor.lexically_normal().string()))
      return false;
  }
  if (!EqualsNoCase(ExtractBaseName(path), program.GetText(text::SavegameBaseName))) return false;
  const std::string extension = ExtractExtension(path);
  // The slot number may come zero-padded to three digits (savegame.014).
  if (extension.size() < 2 || extension.size() > 4) return false;
  const std::string number = extension.substr(1);
  for (char c : number)
    if (!IsDigit(c)) return false;
  return std::stoi(number) <= 14;
}

bool IsKeptName(const Program& program, const PackageHeader& header, std::string_view name) {
  for (const std::string& own : header.Names)
    if (EqualsNoCase(own, name)) return true;
  for (int n = 0; n <= 11; ++n)
    if (EqualsNoCase(name, program.GetText(text::KeptNumberedName, {std::to_string(n)})))
      return true;
  return false;
}

}  // namespace vardolin
