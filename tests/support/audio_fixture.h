#pragma once
// A program for the audio tests on the real Linux platform, so that madplay and lame run, with
// audio files made in the test by sox and lame.

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "foundation/platform/linux_platform.h"

namespace vardolin::testing {

struct AudioFixture {
  TempDir dir;
  ScriptedUi ui;
  LinuxPlatform platform;
  Program program{dir / "home", ui, platform};

  AudioFixture() {
    MakeTestHome(dir / "home");
    program.texts.EnglishTexts = ReadEnglishForTests();
  }
  std::filesystem::path Path(const std::string& rel) const { return dir / rel; }

  // A tone of `seconds` made by sox with the given output options ("-r 44100 -c 2 -b 16").
  std::filesystem::path Tone(const std::string& name, const std::string& options,
                             double seconds = 2) const {
    const std::filesystem::path out = dir / name;
    Shell("sox -n " + options + " '" + out.string() + "' synth " + std::to_string(seconds) +
          " sine 440 vol 0.5");
    return out;
  }
  // An MP3 of a tone, encoded by lame with the given options ("-b 128").
  std::filesystem::path Mp3(const std::string& name, const std::string& lame_options,
                            const std::string& tone_options = "-r 44100 -c 2 -b 16") const {
    const std::filesystem::path wave = Tone(name + ".src.wav", tone_options);
    const std::filesystem::path out = dir / name;
    Shell("lame --quiet " + lame_options + " '" + wave.string() + "' '" + out.string() + "'");
    return out;
  }
  // A stand-in for a tool in the home's tools folder: a shell script with the given body.
  void StandInTool(const std::string& name, const std::string& body) const {
    const std::filesystem::path tool = dir / "home" / "tools" / name;
    WriteBytes(tool, "#!/bin/sh\n" + body + "\n");
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
  }
  static void Shell(const std::string& command) {
    ASSERT_EQ(std::system((command + " 2>/dev/null").c_str()), 0) << command;
  }
};

// What sox reads of a file: "channels rate encoding", empty when it can't read it.
inline std::string SoxForm(const std::filesystem::path& file) {
  // echo joins the three answers by blanks.
  const std::string f = " '" + file.string() + "'";
  const std::string command =
      "echo $( (soxi -c" + f + "; soxi -r" + f + "; soxi -e" + f + ") 2>/dev/null)";
  std::string text;
  if (FILE* pipe = ::popen(command.c_str(), "r")) {
    char buf[256];
    while (std::fgets(buf, sizeof buf, pipe)) text += buf;
    ::pclose(pipe);
  }
  if (!text.empty()) text.pop_back();
  return text;
}

}  // namespace vardolin::testing
