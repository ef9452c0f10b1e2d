#include "settings/SettingsStore.h"

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "support/TempDir.h"

namespace kartova {
namespace {

constexpr const char* kSelector = "DefaultPropertyPath";

// A registry in memory, names without regard to case, that can be made to refuse writes.
class MemoryRegistry : public RegistryBackEnd {
 public:
  using Values = std::map<std::pair<std::string, std::string>, std::string>;

  explicit MemoryRegistry(Values& values, bool writable = true) : values_(values), writable_(writable) {}

  std::string Read(const std::string& section, const std::string& key, const std::string& def) const override {
    const auto found = values_.find({Folded(section), Folded(key)});
    return found == values_.end() ? def : found->second;
  }
  bool Write(const std::string& section, const std::string& key, const std::string& value) override {
    if (writable_) values_[{Folded(section), Folded(key)}] = value;
    return writable_;
  }

 private:
  static std::string Folded(std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
  }
  Values& values_;
  bool writable_;
};

class SettingsStoreTest : public ::testing::Test {
 protected:
  SettingsStore Store(bool writable = true) const {
    return SettingsStore(dir_.path().string(), std::make_unique<MemoryRegistry>(registry_, writable));
  }

  test::TempDir dir_;
  mutable MemoryRegistry::Values registry_;
};

TEST_F(SettingsStoreTest, SelectorsChooseTheBackEndAndDisagreementIsRepaired) {
  SettingsStore store = Store();
  EXPECT_EQ(store.IniPath(), dir_.File("Kartova.ini"));
  store.set_kind(SettingsStore::kIni);
  EXPECT_FALSE(store.ChooseBackEnd());  // first start: both "reg", nothing written
  EXPECT_EQ(store.kind(), SettingsStore::kRegistry);
  EXPECT_FALSE(std::filesystem::exists(store.IniPath()));
  EXPECT_TRUE(registry_.empty());

  store.WriteIni("Settings", kSelector, "ini");
  EXPECT_EQ(store.PeekBackEnd(), SettingsStore::kRegistry);
  EXPECT_EQ(store.ReadIni("Settings", kSelector, ""), "ini");  // peeking repairs nothing
  EXPECT_TRUE(store.ChooseBackEnd());
  EXPECT_EQ(store.kind(), SettingsStore::kRegistry);
  EXPECT_EQ(store.ReadIni("Settings", kSelector, ""), "reg");
  EXPECT_EQ(store.ReadRegistry("Settings", kSelector, ""), "reg");

  // Anything but "reg" in both selects the INI file; the comparison itself is exact.
  store.WriteIni("Settings", kSelector, "INI");
  store.WriteRegistry("Settings", kSelector, "INI");
  EXPECT_EQ(store.PeekBackEnd(), SettingsStore::kIni);
  EXPECT_FALSE(store.ChooseBackEnd());
  EXPECT_EQ(store.kind(), SettingsStore::kIni);
  store.WriteRegistry("Settings", kSelector, "ini");
  EXPECT_TRUE(store.ChooseBackEnd());
  EXPECT_EQ(store.kind(), SettingsStore::kRegistry);
}

TEST_F(SettingsStoreTest, ReadAndWriteGoToTheActiveBackEndOnly) {
  SettingsStore store = Store();
  store.WriteSetting("Settings", "WinSizeX", "1000");
  store.set_kind(SettingsStore::kIni);
  EXPECT_EQ(store.ReadSetting("Settings", "WinSizeX", "9060"), "9060");
  store.WriteSetting("Settings", "WinSizeX", "2000");
  store.set_kind(2);
  store.WriteSetting("Settings", "WinSizeX", "3000");
  EXPECT_EQ(store.ReadSetting("Settings", "WinSizeX", "none"), "none");
  EXPECT_EQ(store.ReadIni("Settings", "WinSizeX", ""), "2000");
  EXPECT_EQ(store.ReadRegistry("Settings", "WinSizeX", ""), "1000");
}

TEST_F(SettingsStoreTest, WritesSayWhetherTheyWereStored) {
  SettingsStore store = Store(/*writable=*/false);
  EXPECT_FALSE(store.WriteRegistry("Settings", "ZoomMap", "1"));
  EXPECT_TRUE(store.WriteIni("Settings", "ZoomMap", "1"));
  // The registry has no unnamed sections or keys, whatever the back end would take.
  SettingsStore open = Store();
  EXPECT_FALSE(open.WriteRegistry("", "ZoomMap", "1"));
  EXPECT_FALSE(open.WriteRegistry("Settings", "", "1"));
  EXPECT_EQ(open.ReadRegistry("", "ZoomMap", "-"), "-");
  EXPECT_TRUE(registry_.empty());

  // Without a registry back end the registry holds nothing and takes nothing.
  SettingsStore none(dir_.path().string(), nullptr);
  EXPECT_FALSE(none.WriteRegistry("Settings", kSelector, "ini"));
  EXPECT_EQ(none.ReadRegistry("Settings", kSelector, "reg"), "reg");
  none.WriteIni("Settings", kSelector, "ini");
  EXPECT_TRUE(none.ChooseBackEnd());
  EXPECT_EQ(none.ReadIni("Settings", kSelector, ""), "reg");
}

TEST_F(SettingsStoreTest, TheIniDirectoryIsMadeAtTheFirstWrite) {
  const std::filesystem::path config = dir_.path() / "config" / "Kartova";
  SettingsStore store(config.string(), std::make_unique<MemoryRegistry>(registry_));
  store.set_kind(SettingsStore::kIni);
  EXPECT_EQ(store.ReadSetting("Settings", "ZoomMap", "0"), "0");
  EXPECT_FALSE(std::filesystem::exists(dir_.path() / "config")) << "reading makes nothing";
  store.WriteSetting("Settings", "ZoomMap", "1");
  EXPECT_TRUE(std::filesystem::is_regular_file(config / "Kartova.ini"));
  EXPECT_EQ(store.ReadSetting("Settings", "ZoomMap", "0"), "1");

  // A directory that cannot be made (a file stands where it would go): the write fails, the
  // program goes on and the defaults are read.
  test::WriteFileText(dir_.File("blocked"), "");
  SettingsStore blocked((dir_.path() / "blocked" / "Kartova").string(), nullptr);
  EXPECT_FALSE(blocked.WriteIni("Settings", "ZoomMap", "1"));
  EXPECT_EQ(blocked.ReadIni("Settings", "ZoomMap", "0"), "0");
  EXPECT_EQ(test::ReadFileText(dir_.File("blocked")), "");
}

}  // namespace
}  // namespace kartova
