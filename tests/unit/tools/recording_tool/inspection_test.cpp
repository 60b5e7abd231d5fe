#include "recording_tool/inspection.h"

#include "platform/headless/memory_files.h"
#include "recordings.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

Inspection inspected(const std::string& bytes) {
  platform::MemoryFiles files;
  files.content["a"] = bytes;
  return inspect(*files.openForReading("a"));
}

struct Damage {
  const char* name;
  std::string bytes;
  std::int64_t offset;
  const char* what;
};

const std::string header = recordings::header();
const auto headerBytes = static_cast<std::int64_t>(header.size());
constexpr std::int64_t blockBytes = 1036;

std::string with(std::string bytes, std::int64_t offset, char byte) {
  bytes[static_cast<std::size_t>(offset)] = byte;
  return bytes;
}

TEST(Inspection, FindsNothingInWholeRecordings) {
  for (const std::string& bytes : {recordings::file(3), recordings::file(250), bytesOf(goldenPath("examination.QVD")),
                                   recordings::file(2, {{2, "prima"}, {3, "seconda"}})}) {
    const Inspection found = inspected(bytes);
    EXPECT_TRUE(found.defects.empty()) << found.defects.front().what;
  }
  EXPECT_EQ(inspected(recordings::file(250)).blocks, 250);
}

TEST(Inspection, NamesEachDamageWithItsByte) {
  const std::string whole = recordings::file(3);
  const Damage cases[] = {
      {"empty", "", 0, "the file is empty"},
      {"no header", "abc", 3, "cannot be read"},
      {"cut", whole.substr(0, whole.size() - 100), headerBytes + 2 * blockBytes,
       "block 3 is cut off: it has 936 of 1036 bytes"},
      {"no samples", header, headerBytes, "there are no samples"},
      {"shunned byte", with(whole, headerBytes + 259 + 7, 26), headerBytes + 266, "sample byte 26"},
      {"shunned first byte", with(whole, headerBytes, 26), headerBytes, "sample byte 26"},
      {"tail", with(whole, headerBytes + 256, '+'), headerBytes + 256,
       "no '-' and line end behind the samples in channel 1 of block 1"},
      {"second", whole + recordings::file(2), headerBytes + 3 * blockBytes, "a second recording begins here"},
      {"version", recordings::header({{1, "Nota: "}}, "V9") + recordings::block(128), 0, "the date field"},
      {"note", recordings::file(3, {{9, "dopo"}}), static_cast<std::int64_t>(recordings::header({{9, "dopo"}}).size()),
       "note 1 stands at block 9 of 3"},
      {"numbers", recordings::header({{1, "Nota: "}}, "V4") + "1,2,abc", headerBytes + 4, "no number in block 1"}};
  for (const auto& [name, bytes, offset, what] : cases) {
    const Inspection found = inspected(bytes);
    ASSERT_FALSE(found.defects.empty()) << name;
    EXPECT_EQ(found.defects.front().offset, offset) << name;
    EXPECT_NE(found.defects.front().what.find(what), std::string::npos) << name << ": " << found.defects.front().what;
  }
}

TEST(Inspection, TwoRecordingsAreFoundBehindAFirstOneThatIsCutOffAnywhere) {
  const std::string first = recordings::file(3);
  for (std::size_t cut = 0; cut <= 1036; cut += 7) {
    const std::string begun = first.substr(0, first.size() - cut);
    const Inspection found = inspected(begun + recordings::file(2));
    ASSERT_FALSE(found.defects.empty()) << cut;
    EXPECT_EQ(found.defects.back().offset, static_cast<std::int64_t>(begun.size())) << cut;
    EXPECT_EQ(found.defects.back().what,
              "the file holds two recordings: a second recording begins here, it is not read");
    EXPECT_EQ(found.blocks, cut < 1036 ? 3 : 2) << cut;
    EXPECT_EQ(found.defects.size(), cut % 1036 == 0 ? 1U : 2U) << cut;
  }
}

TEST(Inspection, ADamagedFileOfAnyLengthHasAtMostAThousandDefects) {
  const Inspection found = inspected(header + std::string(4'000'000, '\0'));
  EXPECT_EQ(found.defects.size(), 1000U);
}

}  // namespace
}  // namespace korvinel::tool
