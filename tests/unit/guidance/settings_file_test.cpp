#include "guidance/settings_file.h"

#include <gtest/gtest.h>

#include "temporary_folder.h"

namespace korvinel::guidance {
namespace {

using platform::contentOf;
using platform::TemporaryFolder;
using platform::writeFile;

namespace fs = std::filesystem;

TEST(SettingsFileOfAUser, IsThereAtTheNextStart) {
  const TemporaryFolder home;
  {
    SettingsFile file(home / "korvinel");
    EXPECT_EQ(file.settings, Settings{});
    file.settings.sounds = false;
    EXPECT_TRUE(file.save());
  }
  const SettingsFile next(home / "korvinel");
  EXPECT_FALSE(next.settings.sounds);
  EXPECT_EQ(next.notice(), "");
  EXPECT_EQ(std::distance(fs::directory_iterator(home / "korvinel"), {}), 1) << "nothing unfinished is left";
}

TEST(SettingsFileOfAUser, KeepsTheLinesOfANewerVersion) {
  const TemporaryFolder home;
  writeFile(home / "impostazioni.txt", "lingua=it\nsuoni=no\n");
  SettingsFile file(home.path());
  file.settings.sounds = true;
  EXPECT_TRUE(file.save());
  EXPECT_NE(contentOf(home / "impostazioni.txt").find("lingua=it\n"), std::string::npos);
}

TEST(SettingsFileOfAUser, ThatIsDamagedIsSetAsideAndSaidOnce) {
  const TemporaryFolder home;
  for (const std::string& damaged : {std::string("suoni=forse\n"), std::string(70'000, '#')}) {
    writeFile(home / "impostazioni.txt", damaged);
    const SettingsFile file(home.path());
    EXPECT_EQ(file.settings, Settings{});
    EXPECT_EQ(file.notice(),
              "Impostazioni illeggibili: valgono quelle iniziali. Il file di prima è impostazioni-danneggiate.txt.");
    EXPECT_EQ(contentOf(home / "impostazioni-danneggiate.txt"), damaged);
    EXPECT_EQ(SettingsFile(home.path()).notice(), "");
  }
}

TEST(SettingsFileOfAUser, IsNoFaultWhereNothingCanBeKept) {
  const TemporaryFolder home;
  writeFile(home / "file", "");
  for (const std::string& folder : {std::string(), home / "file/korvinel"}) {
    SettingsFile file(folder);
    EXPECT_EQ(file.notice(), "");
    file.settings.sounds = false;
    EXPECT_FALSE(file.save());
  }
}

TEST(SettingsFileOfAUser, ThatCannotBeReplacedIsSaidToBeUnreadable) {
  const TemporaryFolder home;
  fs::create_directories(home / "impostazioni.txt/x");
  fs::create_directories(home / "impostazioni-danneggiate.txt/x");
  SettingsFile file(home.path());
  EXPECT_EQ(file.notice(), "Impostazioni illeggibili: valgono quelle iniziali.");
  EXPECT_FALSE(file.save());
  EXPECT_FALSE(fs::exists(home / "impostazioni.txt.nuovo"));
}

TEST(SettingsFileOfAUser, IsNotWrittenWhereNothingHasChanged) {
  const TemporaryFolder home;
  SettingsFile file(home / "korvinel");
  EXPECT_TRUE(file.save());
  fs::remove(home / "korvinel/impostazioni.txt");
  EXPECT_TRUE(file.save());
  EXPECT_FALSE(fs::exists(home / "korvinel/impostazioni.txt"));
}

}  // namespace
}  // namespace korvinel::guidance
