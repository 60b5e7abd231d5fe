#include "frame/configuration.h"

#include <utility>

#include "eeg/spectrum.h"
#include "values/field_reader.h"
#include "values/int16.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

template <typename Read>
auto readItem(const char* file, int number, ItemMeaning meaning, Read&& read) {
  try {
    return read();
  } catch (const RuntimeError& fault) {
    Facts facts = fault.facts();
    facts.parameterFile = file;
    facts.item = number;
    facts.meaning = meaning;
    throw RuntimeError(std::move(facts));
  }
}

}  // namespace

int readSettings(ByteSource& file) {
  constexpr auto name = "C:\\QUARVEL5\\Instal8s.val";
  const auto text = [&](int number) {
    return readItem(name, number, ItemMeaning::text, [&] { return readField(file); });
  };
  const auto number = [&](int item) {
    return readItem(name, item, ItemMeaning::number, [&] { return readFloat(file); });
  };
  text(1);
  text(2);
  const Int16 port = readItem(name, 3, ItemMeaning::serialPort, [&] { return Int16::nearest(readNumber(file)); });
  for (int item = 4; item <= 7; ++item) number(item);
  text(8);
  text(9);
  return port;
}

void readCalibration(ByteSource& file, Bounded<float, 130>& factors) {
  constexpr int stored = eeg::reportedIndexes;
  constexpr int lastUsed = eeg::keptIndexes;
  for (int index = 1; index <= stored; ++index)
    factors[index] =
        readItem("C:\\QUARVEL5\\Factors.val", index, ItemMeaning::calibrationFactor, [&] { return readFloat(file); });
  for (int index = stored + 1; index <= lastUsed; ++index) factors[index] = 1.0F;
}

}  // namespace korvinel
