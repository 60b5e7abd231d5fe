#include "guidance/trial.h"

#include <gtest/gtest.h>

namespace korvinel::guidance {
namespace {

TEST(IsOfTrial, KnowsTheTrialByItsFolder) {
  EXPECT_TRUE(isOfTrial("/home/anna/.local/share/korvinel-prova/korvinel"));
  EXPECT_TRUE(isOfTrial("/home/anna/.local/share/korvinel-prova"));
  EXPECT_TRUE(isOfTrial("/data/korvinel-prova/korvinel/drive_c/QUARVEL5/DATAFILE/uno.QVD"));
}

TEST(IsOfTrial, NothingElseIsOne) {
  for (const char* path : {"", "/", "/home/anna/.local/share/korvinel", "/home/korvinel-prova-2/korvinel",
                           "korvinel-prova", "/data/vecchio-korvinel-prova/uno.QVD", "C:\\QUARVEL5\\DATAFILE\\uno.QVD"})
    EXPECT_FALSE(isOfTrial(path)) << path;
}

}  // namespace
}  // namespace korvinel::guidance
