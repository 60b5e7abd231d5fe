#include "recording_tool/fault_text.h"

#include <map>
#include <memory>
#include <set>

#include "frame/fault_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/workbench.h"
#include "recordings.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

Facts allFactsOf(Cause cause) {
  return {.cause = cause, .path = "PATH", .newPath = "NEW", .text = "TEXT", .systemReason = "REASON"};
}

TEST(ReasonOf, IsEnglishForEveryCause) {
  const std::map<Cause, const char*> reasons = {
      {Cause::tooLargeFor16Bits, "a number is too large for 16 bits"},
      {Cause::tooLargeFor32Bits, "a number is too large for 32 bits"},
      {Cause::tooLargeForFixed, "a number is too large for four decimals in 64 bits"},
      {Cause::tooLargeForAnyNumber, "the number 'TEXT' is too large"},
      {Cause::indexOutside, "subscript out of range"},
      {Cause::zeroDivisor, "division by zero"},
      {Cause::emptyInterval, "division by zero, the interval has no blocks"},
      {Cause::noCorrelation, "division by zero, the correlation cannot be calculated"},
      {Cause::noNumber, "'TEXT' is not a number"},
      {Cause::fieldTooLong, "a field is too long, the file is damaged"},
      {Cause::quoteMissing, "the closing quotation mark of a text is missing"},
      {Cause::endOfFile, "the file ends too early"},
      {Cause::notReadable, "REASON"},
      {Cause::notWritable, "REASON"},
      {Cause::notRemoved, "it cannot be removed: REASON"},
      {Cause::notRenamed, "it cannot be renamed: REASON"},
      {Cause::folderNotMade, "the folder cannot be created: REASON"},
      {Cause::noHome, "the user has no home folder"},
      {Cause::portSettings, "'TEXT' are not settings of a serial port"},
      {Cause::portMissing, "there is no such serial port: REASON"},
      {Cause::noPort, "it is not a serial port"},
      {Cause::portForbidden, "the serial port cannot be opened, permission is missing (group dialout)"},
      {Cause::portInUse, "the serial port is in use"},
      {Cause::portNotOpened, "the serial port cannot be opened: REASON"},
      {Cause::portRefusesSettings, "the serial port does not accept the settings: REASON"},
      {Cause::portClosed, "the serial port is closed"},
      {Cause::portSilent, "the serial port does not respond: REASON"},
      {Cause::portFull, "the serial port does not accept data"},
      {Cause::foreign, "REASON"},
  };
  ASSERT_EQ(reasons.size(), static_cast<std::size_t>(causeCount));
  for (const auto& [cause, reason] : reasons) EXPECT_EQ(reasonOf(allFactsOf(cause)), reason);
}

TEST(ReasonOf, NamesThePlaceButNoFile) {
  Facts facts{.cause = Cause::noNumber,
              .text = "x",
              .parameterFile = "C:\\QUARVEL5\\Factors.val",
              .item = 3,
              .meaning = ItemMeaning::calibrationFactor};
  EXPECT_EQ(reasonOf(facts), "item 3 (a calibration factor) is missing or not valid: 'x' is not a number");
  facts.meaning = ItemMeaning::serialPort;
  EXPECT_EQ(reasonOf(facts), "item 3 (the number of the serial port) is missing or not valid: 'x' is not a number");
  EXPECT_EQ(
      reasonOf(Facts{.cause = Cause::notReadable, .path = "/a", .systemReason = "Input/output error", .block = 3}),
      "reading stopped at block 3: Input/output error");
  EXPECT_EQ(reasonOf(Facts{.cause = Cause::notReadable, .path = "/a", .notOrdinary = true}),
            "it is not an ordinary file");
  EXPECT_EQ(reasonOf(Facts{.cause = Cause::notReadable, .path = "/a"}), "it cannot be read");
  EXPECT_EQ(reasonOf(Facts{.cause = Cause::folderNotMade, .path = "/a", .systemReason = "Full", .installation = "/b"}),
            "the folder /b cannot be created: the folder cannot be created: Full");
}

TEST(FaultText, NamesTheFileToo) {
  const auto textOf = [](const Facts& facts) { return tool::faultText(RuntimeError(facts)); };
  EXPECT_EQ(textOf({.cause = Cause::notWritable, .path = "/a", .systemReason = "No space left on device"}),
            "/a: it cannot be written: No space left on device");
  EXPECT_EQ(textOf({.cause = Cause::notWritable, .path = "/a", .notOrdinary = true}),
            "/a: it cannot be written: it is not an ordinary file");
  EXPECT_EQ(textOf({.cause = Cause::endOfFile}), "the file ends too early");
  EXPECT_EQ(tool::faultText(std::runtime_error("out of paper")), "out of paper");
}

std::string openingErrorOf(const std::string& bytes) {
  const TemporaryFolder folder;
  const std::string path = writeFile(folder / "a.QVD", bytes);
  const std::string error = errorOf([&] { std::make_unique<Workbench>()->open(path); });
  EXPECT_TRUE(error.starts_with(path + ": ")) << error;
  return error.substr(std::min(error.size(), path.size() + 2));
}

/// The program itself says all of these in Italian, in a box.
TEST(Workbench, SaysInEnglishWhyARecordingIsNotOpened) {
  EXPECT_EQ(openingErrorOf("no recording"), "cannot be opened: the file ends too early");
  EXPECT_EQ(openingErrorOf("\"Rossi"), "cannot be opened: the closing quotation mark of a text is missing");
  EXPECT_EQ(openingErrorOf("\"Rossi\",\"21/11/2026 V3\",\"4canali\",due\r\n"),
            "cannot be opened: 'due' is not a number");
  EXPECT_EQ(openingErrorOf("\"Rossi\",\"21/11/2026 V3\",\"4canali\",40000\r\n"),
            "cannot be opened: a number is too large for 16 bits");
  EXPECT_EQ(openingErrorOf("\"Rossi\",\"21/11/2026 V3\",\"4canali\",1e999\r\n"),
            "cannot be opened: the number '1e999' is too large");
}

TEST(Calibration, ThatCannotBeUsedIsRefusedInEnglish) {
  const TemporaryFolder folder;
  const std::string path = writeFile(folder / "Factors.val", "1,2,tre,4\r\n");
  AnalysisOptions options;
  EXPECT_EQ(errorOf([&] { takeCalibration(options, path); }),
            path +
                ": is no calibration file: item 3 (a calibration factor) is missing or not valid: 'tre' is not a "
                "number");
}

TEST(OpenInput, SaysInEnglishThatAFolderIsNotRead) {
  const TemporaryFolder folder;
  EXPECT_EQ(errorOf([&] { (void)openInput(folder.path()); }),
            folder.path() + ": cannot be read: it is not an ordinary file");
}

}  // namespace
}  // namespace korvinel::tool
