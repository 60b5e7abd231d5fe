#include "platform/posix/name_rules.h"

#include <gtest/gtest.h>

#include <climits>

namespace korvinel::platform {
namespace {

TEST(NameRules, ANameIsOneOfItsFolderAlone) {
  for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("a/b"),
                                  std::string("a\\b"), std::string("a\0b", 3)})
    EXPECT_EQ(nameFaultIn("/tmp/", name), NameFault::letters) << name;
  for (const char* name : {"...", "NUL.QVD", "a:b", " a ", "\t"})
    EXPECT_EQ(nameFaultIn("/tmp/", name), NameFault::none) << name;
}

TEST(NameRules, ANameHasAsManyBytesAsTheFolderTakesEvenIfItIsNotThere) {
  for (const char* folder : {"/tmp/", "/nowhere/at/all/"}) {
    EXPECT_EQ(nameFaultIn(folder, std::string(255, 'a')), NameFault::none) << folder;
    EXPECT_EQ(nameFaultIn(folder, std::string(256, 'a')), NameFault::tooLong) << folder;
  }
}

TEST(NameRules, APathHasFewerBytesThanTheSystemTakes) {
  const std::string folder(PATH_MAX - 10, '/');
  EXPECT_EQ(nameFaultIn(folder, "123456789"), NameFault::none);
  EXPECT_EQ(nameFaultIn(folder, "1234567890"), NameFault::tooLong);
}

}  // namespace
}  // namespace korvinel::platform
