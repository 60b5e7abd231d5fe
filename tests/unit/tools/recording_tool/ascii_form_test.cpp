#include "recording_tool/ascii_form.h"

#include <gtest/gtest.h>

namespace korvinel::tool {
namespace {

TEST(AsciiForm, DropsAccentsAndSpellsLigaturesOut) {
  const std::pair<const char*, const char*> cases[] = {{"Niccolò", "Niccolo"},
                                                       {"Müller-Ångström", "Muller-Angstrom"},
                                                       {"Œuvre ß", "OEuvre ss"},
                                                       {"a\tb", "a b"},
                                                       {"‘x’", "'x'"}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(asciiForm(text), expected);
}

}  // namespace
}  // namespace korvinel::tool
