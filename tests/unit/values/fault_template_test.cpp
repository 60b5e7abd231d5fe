#include "values/fault_template.h"

#include <gtest/gtest.h>

namespace korvinel {
namespace {

constexpr FaultTemplates inOrder() {
  FaultTemplates templates{};
  for (int cause = 0; cause < causeCount; ++cause)
    templates[static_cast<std::size_t>(cause)] = {static_cast<Cause>(cause), "x: <reason>, <text>"};
  return templates;
}

constexpr FaultTemplates without(std::size_t row) {
  FaultTemplates templates = inOrder();
  for (; row + 1 < templates.size(); ++row) templates[row] = templates[row + 1];
  templates.back() = {};
  return templates;
}

constexpr FaultTemplates emptyLast() {
  FaultTemplates templates = inOrder();
  templates.back().sentence = "";
  return templates;
}

static_assert(areInOrder(inOrder()));
static_assert(!areInOrder(without(0)));
static_assert(!areInOrder(without(7)));
static_assert(!areInOrder(without(causeCount - 1)));
static_assert(!areInOrder(emptyLast()));

TEST(FaultTemplates, AreFilledFromTheFacts) {
  EXPECT_EQ(filled(inOrder(), {.cause = Cause::noHome, .text = "b", .systemReason = "a"}, "c"), "x: a, b");
  EXPECT_EQ(filled(inOrder(), {.cause = Cause::noHome, .text = "b", .notOrdinary = true}, "c"), "x: c, b");
  EXPECT_EQ(filled(inOrder(), {.cause = Cause::noHome, .text = "b"}, "c"), "x");
}

}  // namespace
}  // namespace korvinel
