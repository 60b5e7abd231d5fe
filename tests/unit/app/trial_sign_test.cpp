#include "app/trial_sign.h"

#include <gtest/gtest.h>

namespace korvinel {
namespace {

TEST(TrialSign, IsShownOnlyForATrial) {
  TrialSign sign;
  EXPECT_EQ(sign.text(), "PROVA: strumento simulato");
  EXPECT_TRUE(sign.isHidden());
  sign.showIf(true);
  EXPECT_FALSE(sign.isHidden());
  sign.showIf(false);
  EXPECT_TRUE(sign.isHidden());
}

}  // namespace
}  // namespace korvinel
