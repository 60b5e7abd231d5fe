#include "guidance/settings.h"

#include <gtest/gtest.h>

namespace korvinel::guidance {
namespace {

Settings everythingSet() {
  Settings settings;
  settings.mainWindow = WindowPlace{-1200, 40, 1093, 614, true};
  settings.reportWindow = WindowPlace{0, 0, 800, 600, false};
  settings.sounds = false;
  settings.quickNotes = {"occhi chiusi", "piange", "è sveglio"};
  settings.firstPageDismissed = true;
  settings.otherLines = {"# mia", "colore-preferito=blu"};
  return settings;
}

TEST(SettingsText, IsReadBackToTheSameSettings) {
  for (const Settings& settings : {Settings{}, everythingSet()})
    EXPECT_EQ(parseSettings(settingsText(settings)), settings);
}

TEST(SettingsText, IsOneThatAPersonCanEdit) {
  EXPECT_EQ(settingsText(everythingSet()),
            "# Impostazioni di Korvinel; si possono modificare quando il programma è chiuso.\n"
            "finestra-principale=-1200,40,1093,614,massima\n"
            "finestra-rapporto=0,0,800,600\n"
            "suoni=no\n"
            "note-rapide=occhi chiusi; piange; è sveglio\n"
            "prima-pagina-vista=sì\n"
            "# mia\n"
            "colore-preferito=blu\n");
}

TEST(ParseSettings, TakesWhatEditorsLeave) {
  const auto settings =
      parseSettings("\xEF\xBB\xBFsuoni = no\r\n\r\n  note-rapide =tosse ;; ride;\r\nprima-pagina-vista=si");
  ASSERT_TRUE(settings);
  EXPECT_FALSE(settings->sounds);
  EXPECT_TRUE(settings->firstPageDismissed);
  EXPECT_EQ(settings->quickNotes, (std::vector<std::string>{"tosse", "ride"}));
}

TEST(ParseSettings, HasTheDefaultsOfWhatIsMissing) {
  EXPECT_EQ(parseSettings(""), Settings{});
  EXPECT_EQ(parseSettings("finestra-principale=\n"), Settings{});
}

TEST(ParseSettings, TakesAnEmptyListOfNotes) { EXPECT_TRUE(parseSettings("note-rapide=\n")->quickNotes.empty()); }

TEST(ParseSettings, TakesNothingOfDamagedBytes) {
  for (const std::string& damaged :
       {std::string("suoni=forse\n"), std::string("finestra-principale=1,2,3\n"),
        std::string("finestra-rapporto=1,2,0,4\n"), std::string("finestra-rapporto=1,2,3,4,minima\n"),
        std::string("finestra-rapporto=1,2,3,40000\n"), std::string("finestra-rapporto=1,2x,3,4\n"),
        std::string("suoni=no\nqualcosa\n"), std::string("=3\n"), std::string("suoni=\n"), std::string("a=\xE0\n"),
        std::string(40, '\0')})
    EXPECT_FALSE(parseSettings(damaged)) << damaged;
}

}  // namespace
}  // namespace korvinel::guidance
