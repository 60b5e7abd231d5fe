#include "values/runtime_error.h"

#include <iterator>
#include <utility>

namespace korvinel {
namespace {

constexpr const char* names[] = {"tooLargeFor16Bits",
                                 "tooLargeFor32Bits",
                                 "tooLargeForFixed",
                                 "tooLargeForAnyNumber",
                                 "indexOutside",
                                 "zeroDivisor",
                                 "emptyInterval",
                                 "noCorrelation",
                                 "noNumber",
                                 "fieldTooLong",
                                 "quoteMissing",
                                 "endOfFile",
                                 "notReadable",
                                 "notWritable",
                                 "notRemoved",
                                 "notRenamed",
                                 "folderNotMade",
                                 "noHome",
                                 "portSettings",
                                 "portMissing",
                                 "noPort",
                                 "portForbidden",
                                 "portInUse",
                                 "portNotOpened",
                                 "portRefusesSettings",
                                 "portClosed",
                                 "portSilent",
                                 "portFull",
                                 "foreign"};
static_assert(std::size(names) == causeCount);

std::string logLine(const Facts& facts) {
  std::string line = names[static_cast<int>(facts.cause)];
  for (const std::string* part : {&facts.path, &facts.placeOnDisk, &facts.newPath, &facts.text, &facts.systemReason,
                                  &facts.installation, &facts.parameterFile})
    if (!part->empty()) line += ": " + *part;
  if (facts.item > 0) line += ", item " + std::to_string(facts.item);
  if (facts.block) line += ", block " + std::to_string(*facts.block);
  return line;
}

}  // namespace

RuntimeError::RuntimeError(Cause cause) : RuntimeError(Facts{cause}) {}

RuntimeError::RuntimeError(Facts happened)
    : std::runtime_error(logLine(happened)),
      fault(kindOf(happened.cause)),
      facts_(std::make_shared<const Facts>(std::move(happened))) {}

Fault kindOf(Cause cause) {
  if (cause <= Cause::tooLargeForAnyNumber) return Fault::overflow;
  if (cause == Cause::indexOutside) return Fault::subscript;
  if (cause <= Cause::noCorrelation) return Fault::divisionByZero;
  return cause <= Cause::notReadable ? Fault::input : Fault::output;
}

Facts factsOf(const std::exception& fault) {
  const auto* own = dynamic_cast<const RuntimeError*>(&fault);
  return own != nullptr ? own->facts() : Facts{.cause = Cause::foreign, .systemReason = fault.what()};
}

}  // namespace korvinel
