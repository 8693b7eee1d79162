#pragma once
// The editor's converter, tom2pc.exe, turns a level source (.tom) into a compiled level (.tr4)
// with the wad set of the same base name from the editor folder. It is a Windows program that
// runs through Wine and can stall without ending: it is watched, and the user decides whether a
// converter whose files stopped growing is stuck and whether its partial result stays.

#include <filesystem>

namespace vardolin {

class Program;

// True when the file belongs to a wad set: its extension is one of the set's, or it is a side
// file (a sound list, a texture) with the set's wad of its name beside it.
bool IsWadSetFile(Program& program, const std::filesystem::path& path);

// The two files the converter writes for the source in the editor folder: its work file while
// it runs, and the compiled level it leaves.
std::filesystem::path TomConverterWorkFile(const Program& program,
                                           const std::filesystem::path& tom);
std::filesystem::path TomConverterOutput(const Program& program, const std::filesystem::path& tom);

// Runs the converter of the editor folder on the source and watches it: a first look after 5
// seconds, then one a minute. A look that finds the sizes of both files as the look before asks
// whether to stop the converter; a stopped converter's result stays only when the user keeps it.
// True when the compiled level stands at the end. Both files are deleted before it starts.
bool RunTomConverter(Program& program, const std::filesystem::path& tom);
// RunTomConverter, and on a failure the user may try again. False when the user gave up.
bool RunTomConverterAsking(Program& program, const std::filesystem::path& tom);

}  // namespace vardolin
