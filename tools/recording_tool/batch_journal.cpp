#include "recording_tool/batch_journal.h"

#include <filesystem>
#include <functional>
#include <sstream>

#include "recording_tool/host_files.h"
#include "recording_tool/json_text.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/utf8_path.h"

namespace korvinel::tool {
namespace {

namespace fs = std::filesystem;

std::string lineOf(const Json& json) {
  return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

/// A file's name, and so a row, need not be UTF-8, but JSON must be: each byte becomes one character there.
std::string charactersOf(std::string_view bytes) {
  std::string characters;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) characters += static_cast<char>(0xC0U | (byte >> 6U));
    characters += byte >= 0x80 ? static_cast<char>(0x80U | (byte & 0x3FU)) : c;
  }
  return characters;
}

std::string bytesOf(std::string_view characters) {
  std::string bytes;
  for (std::size_t i = 0; i < characters.size(); ++i) {
    const unsigned lead = static_cast<unsigned char>(characters[i]);
    const bool pair = lead >= 0x80 && i + 1 < characters.size();
    bytes +=
        pair ? static_cast<char>((lead << 6U) | (static_cast<unsigned char>(characters[++i]) & 0x3FU)) : characters[i];
  }
  return bytes;
}

/// What a row depends on besides its recording.
std::string signatureOf(const AnalysisOptions& options) {
  const auto block = [](const std::optional<int>& number) { return number ? Json(*number) : Json(nullptr); };
  return lineOf({{"korvinel", 2},
                 {"ocular", options.ocular},
                 {"first", block(options.first)},
                 {"last", block(options.last)},
                 {"factors", std::hash<std::string>{}(options.factors)}});
}

/// A recording changed meanwhile has another key.
std::string keyOf(const std::string& recording) {
  std::error_code error;
  const auto size = fs::file_size(pathOf(recording), error);
  const auto time = fs::last_write_time(pathOf(recording), error);
  return lineOf({charactersOf(recording), error ? 0 : size, error ? 0 : time.time_since_epoch().count()});
}

/// Whether a file may be replaced as a journal: it is one, even of another version, or an interrupted beginning of one.
bool isJournal(const std::string& path) {
  constexpr std::string_view beginning = "{\"korvinel\":";
  const auto file = openInput(path);
  std::string bytes;
  while (bytes.size() < beginning.size() && !file->atEnd()) bytes += static_cast<char>(file->take());
  return beginning.starts_with(bytes) || bytes == beginning;
}

}  // namespace

BatchJournal::BatchJournal(const BatchOptions& options) : path_(absolutePath(options.output + ".part")) {
  const std::string signature = signatureOf(options.analysis);
  const bool exists = fs::exists(pathOf(path_));
  // The creator of a link could redirect the rows.
  if (fs::is_symlink(pathOf(path_))) throw ToolError(options.output + ".part", "is a link, and is left alone");
  if (exists && !options.resume && !options.force)
    throw ToolError(options.output + ".part",
                    "is left of an interrupted run; --resume continues it, --force begins anew");
  if (exists && !isJournal(path_)) throw ToolError(options.output + ".part", "is not left of an interrupted run");
  const auto disk = platform::hostFiles("");
  if (exists && options.resume) {
    readRows(signature);
  } else {
    fs::remove(pathOf(path_));
    disk->createNew(path_)->write(signature);
  }
  file_ = disk->openForAppending(path_);
}

/// A last line cut off by an interruption is ignored.
void BatchJournal::readRows(const std::string& signature) {
  const std::string bytes = readAll(path_);
  if (!bytes.starts_with(signature))
    throw UsageError(path_ + ": was begun with other options or by another version; --force begins anew");
  std::size_t begin = signature.size();
  for (std::size_t end = 0; (end = bytes.find('\n', begin)) != std::string::npos; begin = end + 1) {
    const Json row = Json::parse(bytes.substr(begin, end - begin), nullptr, false);
    if (row.is_array() && row.size() == 3 && row[0].is_string() && row[1].is_string() && row[2].is_boolean())
      rows_[row[0]] = {bytesOf(row[1].get<std::string>()), row[2]};
  }
  fs::resize_file(pathOf(path_), begin);
}

const BatchRow* BatchJournal::rowOf(const std::string& recording) const {
  const auto found = rows_.find(keyOf(recording));
  return found == rows_.end() ? nullptr : &found->second;
}

void BatchJournal::add(const std::string& recording, const BatchRow& row) {
  const std::string line = lineOf(Json::array({keyOf(recording), charactersOf(row.line), row.hasError}));
  const std::lock_guard lock(mutex_);
  file_->write(line);
}

void BatchJournal::remove() {
  file_.reset();
  fs::remove(pathOf(path_));
}

}  // namespace korvinel::tool
