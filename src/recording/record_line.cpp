#include "recording/record_line.h"

#include "values/code_page.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

constexpr auto typeTag = "4canali";
constexpr auto lineEnd = "\r\n";

char storable(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  if (byte == '"') return '\'';
  return code < 0x20 || code == 0x7F ? ' ' : byte;
}

}  // namespace

std::string quotedField(std::string_view utf8) {
  std::string field = "\"";
  for (const char byte : codePageFromUtf8(utf8)) field += storable(byte);
  return field + "\"";
}

std::string temporaryHeaderLine(std::string_view subject, std::string_view date) {
  return quotedField(subject) + "," + quotedField(date) + "," + quotedField(typeTag) + lineEnd;
}

std::string headerLine(std::string_view subject, std::string_view date, int noteCount) {
  return quotedField(subject) + "," + quotedField(std::string(date) + " V3") + "," + quotedField(typeTag) + "," +
         std::to_string(noteCount) + lineEnd;
}

std::string noteLine(float block, std::string_view text) {
  return recordDecimal(block) + "," + quotedField(text) + lineEnd;
}

}  // namespace korvinel
