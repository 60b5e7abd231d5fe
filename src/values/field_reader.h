#pragma once

#include <string>
#include <string_view>

#include "values/byte_source.h"

namespace korvinel {

/// A text in memory as a byte source; the text must outlive it.
class TextSource : public ByteSource {
 public:
  explicit TextSource(std::string_view text) : rest_(text) {}
  int peek() override { return rest_.empty() ? end : static_cast<unsigned char>(rest_.front()); }
  int take() override {
    const int byte = peek();
    if (byte != end) rest_.remove_prefix(1);
    return byte;
  }

 private:
  std::string_view rest_;
};

/// Reads one field and the delimiter after it. Fields are separated by commas or line ends (CR LF, LF or CR); leading
/// blanks are skipped; a field that begins with a double quote runs to the next double quote, any other to the next
/// delimiter. A RuntimeError (input) if the source ends before the field begins, the closing quote is missing, or the
/// field is longer than `longestField` bytes (a damaged file must not fill the memory).
[[nodiscard]] std::string readField(ByteSource& source);

/// Reads one field as a number; a RuntimeError (input) if it is not one.
[[nodiscard]] double readNumber(ByteSource& source);

/// Reads one field as a 32-bit number; also a RuntimeError (overflow) if it is beyond that format's range.
[[nodiscard]] float readFloat(ByteSource& source);

constexpr int longestField = 32'767;

}  // namespace korvinel
