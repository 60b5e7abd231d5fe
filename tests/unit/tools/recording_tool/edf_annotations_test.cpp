#include "recording_tool/edf_annotations.h"

#include <gtest/gtest.h>

namespace korvinel::tool {
namespace {

FileHeader headerWith(const std::vector<std::pair<float, std::string>>& notes) {
  FileHeader header;
  for (const auto& [time, text] : notes) {
    const int note = header.noteCount = header.noteCount + 1;
    header.noteTimes[note] = time;
    header.noteTexts[note] = text;
  }
  return header;
}

TEST(AnnotationsOf, ARecordingAreItsBlocksTimesAndItsNotesInOrder) {
  const auto all = annotationsOf(headerWith({{3, "dopo"}, {2, "prima"}}), 3);
  const std::vector<Annotation> expected = {
      {0, "block 1 at 0 s"}, {2, "block 2 at 3 s"}, {2, "prima"}, {4, "block 3 at 6 s"}, {4, "dopo"}};
  EXPECT_EQ(all, expected);
}

TEST(AnnotationsOf, ThePlaceholderOfARecordingWithoutNotesIsNone) {
  EXPECT_EQ(annotationsOf(headerWith({{1, "Nota: "}}), 1).size(), 1U);
  EXPECT_EQ(annotationsOf(headerWith({{2, "Nota: "}}), 1).size(), 2U);
}

TEST(AnnotationsOf, ATimeOutsideTheRecordingIsItsNearestEnd) {
  const auto all = annotationsOf(headerWith({{-7, "prima"}, {1e9F, "dopo"}}), 2);
  ASSERT_EQ(all.size(), 4U);
  EXPECT_EQ(all[1], (Annotation{0, "prima"}));
  EXPECT_EQ(all[3], (Annotation{4, "dopo"}));
}

TEST(AnnotationsOf, SignsThatSeparateAnnotationsBecomeBlanksAndNoTextHasAName) {
  const auto all = annotationsOf(headerWith({{2,
                                              "a\x14"
                                              "b\x7F"},
                                             {2, ""}}),
                                 1);
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[1].text, "a b ");
  EXPECT_EQ(all[2].text, "Nota");
}

TEST(NotesFrom, AnnotationsAreWithoutTheBlocksTimesAndWhole) {
  const std::string text(100, 'a');
  const auto notes = notesFrom(annotationsOf(headerWith({{2, text}, {3, "b"}}), 3));
  ASSERT_EQ(notes.size(), 2U);
  EXPECT_EQ(notes[0].block, 2);
  EXPECT_EQ(notes[0].text, text);
  EXPECT_EQ(notes[1].block, 3);
  EXPECT_EQ(notes[1].text, "b");
}

TEST(NotesFrom, AnnotationsOfOthersHaveABlockOfTwoOrMoreAndDotsOfTheirOwn) {
  const auto notes = notesFrom({{-5, "a"}, {0.5, "..b"}, {1e300, "c"}, {1e300, "block 5 at noon"}});
  ASSERT_EQ(notes.size(), 4U);
  EXPECT_EQ(notes[0].block, 2);
  EXPECT_EQ(notes[1].text, "..b");
  EXPECT_EQ(notes[2].block, 500'001);
  EXPECT_EQ(notes[3].text, "block 5 at noon");
}

}  // namespace
}  // namespace korvinel::tool
