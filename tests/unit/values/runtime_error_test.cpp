#include "values/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <type_traits>

namespace korvinel {
namespace {

using testing::HasSubstr;

static_assert(std::is_nothrow_copy_constructible_v<RuntimeError>);

TEST(RuntimeError, EveryCauseIsOfTheKindOfItsGroup) {
  const std::pair<Cause, Fault> lastOfTheirKind[] = {{Cause::tooLargeForAnyNumber, Fault::overflow},
                                                     {Cause::indexOutside, Fault::subscript},
                                                     {Cause::noCorrelation, Fault::divisionByZero},
                                                     {Cause::notReadable, Fault::input},
                                                     {Cause::foreign, Fault::output}};
  int cause = 0;
  for (const auto& [last, kind] : lastOfTheirKind)
    for (; cause <= static_cast<int>(last); ++cause) EXPECT_EQ(RuntimeError(Cause(cause)).fault, kind) << cause;
  EXPECT_EQ(cause, causeCount);
}

TEST(RuntimeError, ItsLogLineHoldsEveryFact) {
  const RuntimeError fault(Facts{.cause = Cause::notRenamed,
                                 .path = "C:\\a",
                                 .placeOnDisk = "/disk/a",
                                 .newPath = "C:\\b",
                                 .text = "abc",
                                 .systemReason = "File exists",
                                 .installation = "/root",
                                 .parameterFile = "Factors.val",
                                 .item = 7,
                                 .block = 12});
  EXPECT_STREQ(fault.what(),
               "notRenamed: C:\\a: /disk/a: C:\\b: abc: File exists: /root: Factors.val, item 7, block 12");
}

TEST(RuntimeError, IsTheSameAfterACopy) {
  RuntimeError copy(Cause::endOfFile);
  {
    const RuntimeError fault(Facts{.cause = Cause::noNumber, .text = "abc"});
    copy = fault;
  }
  EXPECT_EQ(copy.facts().cause, Cause::noNumber);
  EXPECT_EQ(copy.facts().text, "abc");
  EXPECT_EQ(copy.fault, Fault::input);
}

TEST(FactsOf, AreThoseOfTheFaultOrALibrarysOwnText) {
  EXPECT_EQ(factsOf(RuntimeError(Facts{.cause = Cause::noNumber, .text = "abc"})).text, "abc");
  const Facts foreign = factsOf(std::runtime_error("out of paper"));
  EXPECT_EQ(foreign.cause, Cause::foreign);
  EXPECT_EQ(foreign.systemReason, "out of paper");
}

}  // namespace
}  // namespace korvinel
