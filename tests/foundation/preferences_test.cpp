#include <gtest/gtest.h>

#include "foundation/services/binary_io.h"
#include "foundation/settings/preferences.h"

namespace vardolin {
namespace {

// A full image whose every field differs from its default; é survives code page 1252.
Preferences Unusual() {
  return {.ShowScreenshotPanel = false,
          .PromptCapture = true,
          .NoAutoCompile = true,
          .CheckEqualLevels = false,
          .Reserved = true,
          .LastArchive = "C:\\archives\\mine.vdc",
          .EditorFolder = "/games/trle",
          .CompilerName = "other.exe",
          .GameName = "tomb5.exe",
          .DefaultLoadDir = "/downloads/caf\xC3\xA9",
          .NoDecompress = false,
          .FullBackupDone = true,
          .AutoSave = false,
          .ArchiveSavegames = false,
          .SavegamesToArchive = 12,
          .AutoUpdateUrls = false,
          .AssociationMinutes = -7,
          .GraphicsProgram = "/usr/bin/gimp",
          .CheckTenths = 9,
          .VerifyImage = false,
          .EnableJoystick = false,
          .JoyCaptureButtons = 0x30,
          .JoyCaptureAlone = true,
          .JoyCloseButtons = 0x0C,
          .JoyCloseAlone = true,
          .JoystickNumber = 1,
          .Flags = 0x41,
          .Language = "Italian"};
}

TEST(PreferencesImage, FieldsLieAtTheirOffsets) {
  std::string image = SerializePreferences(Unusual());
  ASSERT_EQ(image.size(), Preferences::kFileSize);
  ByteReader r(image);
  struct Probe {
    size_t offset;
    std::int64_t expected;
    int width;
  };
  for (Probe probe :
       {Probe{0, 0, 2}, Probe{2, -1, 2}, Probe{8, -1, 2}, Probe{1290, 0, 2}, Probe{1292, -1, 2},
        Probe{1294, 0, 2}, Probe{1296, 0, 2}, Probe{1298, 12, 4}, Probe{1304, -7, 4},
        Probe{1564, 9, 4}, Probe{1572, 0x30, 4}, Probe{1576, -1, 2}, Probe{1578, 0x0C, 4},
        Probe{1584, 1, 4}, Probe{1588, 0x41, 4}}) {
    r.Seek(probe.offset);
    std::int64_t got = probe.width == 2 ? r.I16() : r.I32();
    EXPECT_EQ(got, probe.expected) << "offset " << probe.offset;
  }
  struct Text {
    size_t offset;
    std::string expected;
  };
  for (const Text& t :
       {Text{10, "C:\\archives\\mine.vdc"}, Text{266, "/games/trle"},
        Text{1034, "/downloads/caf\xE9"}, Text{1308, "/usr/bin/gimp"}, Text{1592, "Italian"}}) {
    std::string field = image.substr(t.offset, 256);
    EXPECT_EQ(field.substr(0, t.expected.size()), t.expected) << "offset " << t.offset;
    EXPECT_EQ(field.find_first_not_of(' ', t.expected.size()), std::string::npos)
        << "blank padding at " << t.offset;
  }
}

// Files of other lengths are another version's: what lies before offset 1296 is kept, the rest
// takes defaults, and a file that stops early keeps defaults behind its end.
TEST(PreferencesImage, OtherLengthsKeepOnlyTheEarlierFormat) {
  const std::string full = SerializePreferences(Unusual());
  const Preferences defaults;
  struct Case {
    size_t length;
    bool upgraded;
    bool keeps_language;
  };
  for (Case c : {Case{1296, true, false}, Case{1847, true, false}, Case{1848, false, true},
                 Case{1849, true, false}}) {
    std::string bytes = full;
    bytes.resize(c.length, '\0');
    ParsedPreferences got = ParsePreferences(bytes);
    SCOPED_TRACE(c.length);
    EXPECT_EQ(got.upgraded, c.upgraded);
    EXPECT_EQ(got.prefs.EditorFolder, "/games/trle");
    EXPECT_FALSE(got.prefs.AutoSave);  // offset 1294, the last field of the earlier format
    EXPECT_TRUE(got.prefs.FullBackupDone);
    if (c.upgraded) {
      EXPECT_EQ(got.prefs.SavegamesToArchive, 5);
      EXPECT_EQ(got.prefs.CheckTenths, defaults.CheckTenths);
      EXPECT_TRUE(got.prefs.EnableJoystick);
      EXPECT_EQ(got.prefs.GraphicsProgram, "");
      EXPECT_EQ(got.prefs.Flags, 0);
    }
    EXPECT_EQ(got.prefs.Language, c.keeps_language ? "Italian" : "");
  }
}

}  // namespace
}  // namespace vardolin
