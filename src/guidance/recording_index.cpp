#include "guidance/recording_index.h"

#include "platform/files.h"
#include "platform/skip_on_fault.h"
#include "values/code_page.h"
#include "values/field_reader.h"

namespace korvinel::guidance {

void RecordingIndex::look() {
  for (const std::string& name : files_.list(folder_, ".QVD"))
    if (names_.insert(upperCase(name)).second) unread_.push_back(name);
}

void RecordingIndex::readOne() {
  if (unread_.empty()) return;
  const std::string name = unread_.back();
  unread_.pop_back();
  platform::skipOnFault([&] {
    const auto file = files_.openForReading(folder_ + name);
    const std::string subject = utf8FromCodePage(readField(*file));
    subjects_.add(subject, readField(*file));
  });
}

bool RecordingIndex::hasFile(const std::string& name) const { return names_.contains(upperCase(name)); }

}  // namespace korvinel::guidance
