#include "frame/configuration.h"

#include <string>

#include "values/field_reader.h"
#include "values/int16.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

template <typename Read>
auto readItem(const char* file, int number, const std::string& meaning, Read&& read) {
  try {
    return read();
  } catch (const RuntimeError& cause) {
    throw RuntimeError(cause.fault, std::string("C:\\QUARVEL5\\") + file + ": manca o non e' valido l'elemento " +
                                        std::to_string(number) + " (" + meaning + ").\r" + cause.what());
  }
}

}  // namespace

int readSettings(ByteSource& file) {
  constexpr auto name = "Instal8s.val";
  const auto text = [&](int number) { return readItem(name, number, "testo", [&] { return readField(file); }); };
  const auto number = [&](int item) { return readItem(name, item, "numero", [&] { return readFloat(file); }); };
  text(1);
  text(2);
  const Int16 port = readItem(name, 3, "numero della porta seriale", [&] { return Int16::nearest(readNumber(file)); });
  for (int item = 4; item <= 7; ++item) number(item);
  text(8);
  text(9);
  return port;
}

void readCalibration(ByteSource& file, Bounded<float, 130>& factors) {
  constexpr int stored = 64;
  constexpr int lastUsed = 128;
  for (int index = 1; index <= stored; ++index)
    factors[index] = readItem("Factors.val", index, "fattore di calibrazione", [&] { return readFloat(file); });
  for (int index = stored + 1; index <= lastUsed; ++index) factors[index] = 1.0F;
}

}  // namespace korvinel
