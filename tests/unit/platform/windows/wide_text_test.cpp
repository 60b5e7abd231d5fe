#include "platform/windows/wide_text.h"

#include <gtest/gtest.h>

namespace korvinel::platform {
namespace {

TEST(WideText, GoesToUtf16AndBack) {
  const std::string text = "perch\xC3\xA9 \xE2\x82\xAC \xF0\x9F\xA7\xA0";
  EXPECT_EQ(wideFromUtf8(text), L"perch\u00E9 \u20AC \U0001F9E0");
  EXPECT_EQ(utf8FromWide(wideFromUtf8(text)), text);
  EXPECT_EQ(wideFromUtf8(""), L"");
}

TEST(WideText, ALetterThatIsNotWholeYetIsLeftOut) {
  const std::pair<const char*, std::size_t> cases[] = {{"", 0},
                                                       {"abc", 3},
                                                       {"a\xC3", 1},
                                                       {"a\xC3\xA9", 3},
                                                       {"\xE2", 0},
                                                       {"\xE2\x82", 0},
                                                       {"\xE2\x82\xAC", 3},
                                                       {"a\xF0\x9F\xA7", 1},
                                                       {"a\xF0\x9F\xA7\xA0", 5},
                                                       {"\xA9\xA9\xA9\xA9", 4}};  // not UTF-8 at all
  for (const auto& [text, whole] : cases) EXPECT_EQ(wholeLetters(text), whole) << text;
}

}  // namespace
}  // namespace korvinel::platform
