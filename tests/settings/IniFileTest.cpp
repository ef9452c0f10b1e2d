#include "settings/IniFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/TempDir.h"

namespace kartova {
namespace {

using namespace std::string_literals;
using test::ReadFileText;
using test::WriteFileText;

class IniFileTest : public ::testing::Test {
 protected:
  test::TempDir dir;
  const IniFile ini{dir.File("Kartova.ini")};
};

TEST_F(IniFileTest, ReadsHandWrittenFilesByTheProfileRules) {
  EXPECT_EQ(ini.Read("Settings", "k", "def"), "def");  // no file yet
  WriteFileText(ini.path(),
                "top=0\r\n"
                "[settings]\r\n"
                "  winsizex =  100 \t\r\n"
                "WinSizeX=second\r\n"
                "b=\"  quoted  \"\r\n"
                "c='single'\r\n"
                "e=\"unbalanced\r\n"
                "f=\r\n"
                "g=a=b\r\n"
                "long=" + std::string(10000, 'x') + "\r\n"
                "[GR\xDCN]\r\n"                           // Windows-1252
                "St\xC3\xA4" "dte=Stra\xDF" "e \x80\r\n"  // UTF-8 name, 8-bit value
                "[Settings]\r\n"
                "later=1\r\n");
  EXPECT_EQ(ini.Read("SETTINGS", "WinSizeX", ""), "100");
  EXPECT_EQ(ini.Read("Settings", "b", ""), "  quoted  ");
  EXPECT_EQ(ini.Read("Settings", "c", ""), "single");
  EXPECT_EQ(ini.Read("Settings", "e", ""), "\"unbalanced");
  EXPECT_EQ(ini.Read("Settings", "f", "def"), "");
  EXPECT_EQ(ini.Read("Settings", "g", ""), "a=b");
  EXPECT_EQ(ini.Read("Settings", "long", ""), std::string(254, 'x'));
  EXPECT_EQ(ini.Read("Settings", "missing", std::string(300, 'd')), std::string(254, 'd'));
  EXPECT_EQ(ini.Read("Settings", "top", "-"), "-");
  EXPECT_EQ(ini.Read("Settings", "later", "-"), "-");  // only the first matching section counts
  EXPECT_EQ(ini.Read("gr\xC3\xBCn", "ST\xC3\x84" "DTE", ""), "Stra\xC3\x9F" "e \xE2\x82\xAC");
}

TEST_F(IniFileTest, GarbageBinaryBytesAndOddPathsNeverBreakReads) {
  std::string garbage = "\xFF\xFE\x00\x01[[[]]]\n=novalue\n[\n]\n\0\0\n"s;
  for (int b = 0; b < 256; ++b) garbage += static_cast<char>(b);
  WriteFileText(ini.path(), garbage + "\n[S]\nk=v\0tail\nz=\xC3\n"s);
  EXPECT_EQ(ini.Read("S", "k", "-"), "v");        // a C string ends at NUL
  EXPECT_EQ(ini.Read("S", "z", "-"), "\xC3\x83");  // a lone lead byte is a Windows character
  EXPECT_EQ(ini.Read("", "k", "-"), "-");

  std::filesystem::remove(ini.path());
  std::filesystem::create_directory(ini.path());
  EXPECT_EQ(ini.Read("S", "k", "-"), "-");
  EXPECT_FALSE(ini.Write("S", "k", "v"));
  EXPECT_FALSE(IniFile(dir.File("no/such/dir/Kartova.ini")).Write("S", "k", "v"));
}

TEST_F(IniFileTest, WritesChangeOnlyTheirOwnLine) {
  ASSERT_TRUE(ini.Write("Settings", "DefaultPropertyPath", "ini"));
  ASSERT_TRUE(ini.Write("Other", "k", "line1\nline2"));
  EXPECT_EQ(ReadFileText(ini.path()),
            "[Settings]\nDefaultPropertyPath=ini\n\n[Other]\nk=line1 line2\n");
  EXPECT_FALSE(ini.Write("", "k", "v"));
  EXPECT_FALSE(ini.Write("S", "", "v"));

  WriteFileText(ini.path(),
                "; Kartova settings\r\n[Settings]\r\n  ZOOMMAP = 0 \r\njunk line\r\nWinSizeX=100\r\n"
                "\r\n[Names]\r\n00=Stra\xDF" "e\r\n[Last]\r\nx=1");
  ASSERT_TRUE(ini.Write("Settings", "ZoomMap", "1"));
  ASSERT_TRUE(ini.Write("settings", "WinSizeY", "7920"));
  ASSERT_TRUE(ini.Write("Last", "y", "2"));
  EXPECT_EQ(ReadFileText(ini.path()),
            "; Kartova settings\r\n[Settings]\r\nZoomMap=1\r\njunk line\r\nWinSizeX=100\r\n"
            "WinSizeY=7920\r\n\r\n[Names]\r\n00=Stra\xDF" "e\r\n[Last]\r\nx=1\r\ny=2\r\n");

  // A last line ended by a lone CR: what is written next starts a line of its own, and the
  // values before it keep reading as they did.
  for (const char* text : {"[s]\r", "[a]\r\nk=v\r"}) {
    SCOPED_TRACE(text);
    WriteFileText(ini.path(), text);
    ASSERT_TRUE(ini.Write("s", "j", "2"));
    ASSERT_TRUE(ini.Write("b", "x", "1"));
    EXPECT_EQ(ini.Read("s", "j", "?") + ini.Read("b", "x", "?") + ini.Read("a", "k", "-"),
              std::string("21") + (text[1] == 'a' ? "v" : "-"));
  }
}

TEST_F(IniFileTest, WriteToAReadOnlyFileFails) {
  WriteFileText(ini.path(), "[S]\nk=old\n");
  std::filesystem::permissions(ini.path(), std::filesystem::perms::owner_read);
  if (std::ofstream(ini.path(), std::ios::app)) GTEST_SKIP() << "rights ignore read-only files";
  EXPECT_FALSE(ini.Write("S", "k", "new"));
  EXPECT_EQ(ReadFileText(ini.path()), "[S]\nk=old\n");
}

}  // namespace
}  // namespace kartova
