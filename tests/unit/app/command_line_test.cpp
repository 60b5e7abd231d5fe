#include "app/command_line.h"

#include <gtest/gtest.h>

namespace korvinel {
namespace {

using Words = std::vector<std::string>;

TEST(CommandLine, WithoutWordsTheWindowOpens) { EXPECT_FALSE(answerTo({})); }

TEST(CommandLine, ASessionThatIsRestoredOpensTheWindow) {
  EXPECT_FALSE(answerTo({"-session", "10a_1_2"}));
  EXPECT_EQ(answerTo({"-session"})->exitCode, 2);
}

TEST(CommandLine, HelpAndVersionAreAnswered) {
  for (const Words& words : {Words{"--help"}, Words{"-h"}}) {
    EXPECT_EQ(answerTo(words)->exitCode, 0);
    EXPECT_TRUE(answerTo(words)->text.starts_with("Uso: korvinel\n"));
  }
  EXPECT_EQ(answerTo({"--version"})->exitCode, 0);
  EXPECT_EQ(answerTo({"--version"})->text, "korvinel " KORVINEL_VERSION "\n");
}

TEST(CommandLine, AnythingElseIsRefusedInOneSentence) {
  const Words refused[] = {{"esame.QVD"}, {""},           {"--help", "-x"}, {"-platform", "offscreen"},
                           {"-style"},    {"--versione"}, {"-x", "--help"}, {"-display", ":0"}};
  for (const Words& words : refused) {
    const auto answer = answerTo(words);
    ASSERT_TRUE(answer) << words.front();
    EXPECT_EQ(answer->exitCode, 2) << words.front();
    EXPECT_TRUE(answer->text.starts_with("korvinel: argomento sconosciuto «")) << answer->text;
    EXPECT_EQ(answer->text.find('\n'), answer->text.size() - 1);
  }
  EXPECT_NE(answerTo({"--help", "-x"})->text.find("«-x»"), std::string::npos);
}

}  // namespace
}  // namespace korvinel
