#include "recording_tool/fault_text.h"

#include "values/fault_template.h"

namespace korvinel::tool {
namespace {

constexpr FaultTemplates sentences = {{
    {Cause::tooLargeFor16Bits, "a number is too large for 16 bits"},
    {Cause::tooLargeFor32Bits, "a number is too large for 32 bits"},
    {Cause::tooLargeForFixed, "a number is too large for four decimals in 64 bits"},
    {Cause::tooLargeForAnyNumber, "the number '<text>' is too large"},
    {Cause::indexOutside, "subscript out of range"},
    {Cause::zeroDivisor, "division by zero"},
    {Cause::emptyInterval, "division by zero, the interval has no blocks"},
    {Cause::noCorrelation, "division by zero, the correlation cannot be calculated"},
    {Cause::noNumber, "'<text>' is not a number"},
    {Cause::fieldTooLong, "a field is too long, the file is damaged"},
    {Cause::quoteMissing, "the closing quotation mark of a text is missing"},
    {Cause::endOfFile, "the file ends too early"},
    {Cause::notReadable, "it cannot be read: <reason>"},
    {Cause::notWritable, "it cannot be written: <reason>"},
    {Cause::notRemoved, "it cannot be removed: <reason>"},
    {Cause::notRenamed, "it cannot be renamed: <reason>"},
    {Cause::folderNotMade, "the folder cannot be created: <reason>"},
    {Cause::noHome, "the user has no home folder"},
    {Cause::portSettings, "'<text>' are not settings of a serial port"},
    {Cause::portMissing, "there is no such serial port: <reason>"},
    {Cause::noPort, "it is not a serial port"},
    {Cause::portForbidden, "the serial port cannot be opened, permission is missing (group dialout)"},
    {Cause::portInUse, "the serial port is in use"},
    {Cause::portNotOpened, "the serial port cannot be opened: <reason>"},
    {Cause::portRefusesSettings, "the serial port does not accept the settings: <reason>"},
    {Cause::portClosed, "the serial port is closed"},
    {Cause::portSilent, "the serial port does not respond: <reason>"},
    {Cause::portFull, "the serial port does not accept data"},
    {Cause::foreign, "<reason>"},
}};
static_assert(areInOrder(sentences));

constexpr auto notOrdinary = "it is not an ordinary file";

const char* nameOf(ItemMeaning meaning) {
  switch (meaning) {
    case ItemMeaning::text: return "a text";
    case ItemMeaning::number: return "a number";
    case ItemMeaning::serialPort: return "the number of the serial port";
    case ItemMeaning::calibrationFactor: return "a calibration factor";
  }
  return "";
}

std::string placeOf(const Facts& facts) {
  if (!facts.installation.empty()) return "the folder " + facts.installation + " cannot be created: ";
  if (facts.item > 0)
    return "item " + std::to_string(facts.item) + " (" + nameOf(facts.meaning) + ") is missing or not valid: ";
  if (facts.block) return "reading stopped at block " + std::to_string(*facts.block) + ": ";
  return "";
}

/// What a message has said already, "cannot be read", is not said again.
bool isTold(const Facts& facts) { return facts.cause == Cause::notReadable || facts.cause == Cause::notWritable; }

}  // namespace

std::string reasonOf(const Facts& facts) {
  if (isTold(facts) && facts.notOrdinary) return placeOf(facts) + notOrdinary;
  if (isTold(facts) && !facts.systemReason.empty()) return placeOf(facts) + facts.systemReason;
  return placeOf(facts) + filled(sentences, facts, notOrdinary);
}

std::string faultText(const std::exception& fault) {
  const Facts facts = factsOf(fault);
  if (facts.path.empty()) return reasonOf(facts);
  return placeOf(facts) + facts.path + ": " + filled(sentences, facts, notOrdinary);
}

}  // namespace korvinel::tool
