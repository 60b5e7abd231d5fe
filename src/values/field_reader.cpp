#include "values/field_reader.h"

#include "values/number_text.h"
#include "values/real32.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

bool isDelimiter(int byte) { return byte == ',' || byte == '\r' || byte == '\n'; }

void skipBlanks(ByteSource& source) {
  while (source.peek() == ' ' || source.peek() == '\t') source.take();
}

void append(std::string& field, int byte) {
  if (field.size() >= static_cast<std::size_t>(longestField)) throw RuntimeError(Cause::fieldTooLong);
  field += static_cast<char>(byte);
}

void takeDelimiter(ByteSource& source) {
  if (source.take() == '\r' && source.peek() == '\n') source.take();
}

std::string quotedField(ByteSource& source) {
  source.take();
  std::string field;
  while (source.peek() != '"') {
    if (source.peek() == ByteSource::end) throw RuntimeError(Cause::quoteMissing);
    append(field, source.take());
  }
  source.take();
  skipBlanks(source);
  if (isDelimiter(source.peek())) takeDelimiter(source);
  return field;
}

}  // namespace

std::string readField(ByteSource& source) {
  skipBlanks(source);
  if (source.peek() == ByteSource::end) throw RuntimeError(Cause::endOfFile);
  if (source.peek() == '"') return quotedField(source);
  std::string field;
  while (!isDelimiter(source.peek()) && source.peek() != ByteSource::end) append(field, source.take());
  takeDelimiter(source);
  return field;
}

double readNumber(ByteSource& source) { return wholeNumber(readField(source)); }

float readFloat(ByteSource& source) { return toFloat(readNumber(source)); }

}  // namespace korvinel
