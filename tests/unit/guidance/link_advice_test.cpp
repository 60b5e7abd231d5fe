#include "guidance/link_advice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "headless_program.h"

namespace korvinel::guidance {
namespace {

using testing::HasSubstr;

struct LinkAdvice : testing::Test {
  LinkAdvice() { program.state.startUp(); }
  std::string adviceFor(LinkTrouble trouble) {
    program.state.linkTrouble = trouble;
    return linkAdvice(program.state, "/dev/ttyUSB0");
  }
  std::string adviceFor(const Facts& facts) {
    program.state.lineFault = std::make_shared<const Facts>(facts);
    return adviceFor(LinkTrouble::port);
  }
  HeadlessProgram program;
};

TEST_F(LinkAdvice, NamesThePortAndItsDevice) {
  EXPECT_THAT(adviceFor(LinkTrouble::silence), testing::StartsWith("COM2 (/dev/ttyUSB0): "));
  EXPECT_THAT(linkAdvice(program.state, ""), testing::StartsWith("COM2: "));
  EXPECT_THAT(linkAdvice(program.state, "COM2"), testing::StartsWith("COM2: "));
}

TEST_F(LinkAdvice, SaysWhyThePortCannotBeUsed) {
  const std::map<Cause, std::string> words = {
      {Cause::portMissing, "non c'è"},          {Cause::noPort, "non è una porta seriale"},
      {Cause::portForbidden, "gruppo dialout"}, {Cause::portInUse, "altro programma"},
      {Cause::portSilent, "si è interrotto"},   {Cause::portClosed, "si è interrotto"},
      {Cause::portFull, "si è interrotto"}};
  for (const auto& [cause, word] : words) EXPECT_THAT(adviceFor(Facts{.cause = cause}), HasSubstr(word));
  EXPECT_THAT(adviceFor(Facts{.cause = Cause::portNotOpened, .path = "COM2", .systemReason = "strana"}),
              HasSubstr("La porta seriale COM2 non si apre: strana."));
}

TEST_F(LinkAdvice, SaysWhatTheInstrumentDoes) {
  EXPECT_THAT(adviceFor(LinkTrouble::port), HasSubstr("si è interrotto"));
  EXPECT_THAT(adviceFor(LinkTrouble::silence), HasSubstr("lo strumento tace"));
  program.state.linkAnswer = "N\xFF";
  EXPECT_THAT(adviceFor(LinkTrouble::otherAnswer), HasSubstr("(4E FF)"));
  EXPECT_THAT(adviceFor(LinkTrouble::noSilence), HasSubstr("poi non tace"));
  EXPECT_THAT(adviceFor(LinkTrouble::lostFrames), HasSubstr("incompleti"));
}

}  // namespace
}  // namespace korvinel::guidance
