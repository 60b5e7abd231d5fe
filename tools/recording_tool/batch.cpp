#include "recording_tool/batch.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <mutex>
#include <set>
#include <thread>

#include "recording_tool/batch_journal.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/messages.h"
#include "recording_tool/progress_bar.h"
#include "recording_tool/safe_output.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/utf8_path.h"
#include "values/code_page.h"
#include "values/runtime_error.h"

namespace korvinel::tool {
namespace {

namespace fs = std::filesystem;

void addFolder(const fs::path& folder, std::set<std::string>& found) {
  std::error_code error;
  fs::recursive_directory_iterator entry(folder, error);
  for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
    std::error_code ignored;
    if (entry->is_regular_file(ignored) && upperCase(utf8Of(entry->path().extension())) == ".QVD")
      found.insert(genericUtf8Of(entry->path()));
  }
  if (error) throw ToolError(utf8Of(folder), "cannot be listed: " + error.message());
}

/// Analyses the recordings that have no row yet, each thread with its own program.
class Workers {
 public:
  Workers(const std::vector<std::string>& recordings, const BatchOptions& options, BatchJournal& journal)
      : recordings_(recordings),
        options_(options),
        journal_(journal),
        rows_(recordings.size()),
        bar_(static_cast<int>(recordings.size())) {}

  std::vector<BatchRow> run() {
    {
      std::vector<std::jthread> threads;
      for (int job = 1; job <= options_.jobs; ++job) threads.emplace_back([this] { work(); });
    }
    if (fault_) std::rethrow_exception(fault_);
    return std::move(rows_);
  }

 private:
  void work() {
    try {
      for (std::size_t i = next_++; i < recordings_.size() && !stopped_; i = next_++) finish(i);
    } catch (...) {
      const std::lock_guard lock(mutex_);
      fault_ = std::current_exception();
      stopped_ = true;
    }
  }

  void finish(std::size_t i) {
    const BatchRow* kept = journal_.rowOf(recordings_[i]);
    rows_[i] = kept != nullptr ? *kept : batchRow(recordings_[i], options_.analysis);
    if (kept == nullptr) journal_.add(recordings_[i], rows_[i]);
    const std::lock_guard lock(mutex_);
    bar_.show(++finished_);
  }

  const std::vector<std::string>& recordings_;
  const BatchOptions& options_;
  BatchJournal& journal_;
  std::vector<BatchRow> rows_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<bool> stopped_ = false;
  std::mutex mutex_;
  int finished_ = 0;
  ProgressBar bar_;
  std::exception_ptr fault_;
};

std::string tableOf(const std::vector<BatchRow>& rows) {
  std::string table = batchTitle();
  for (const BatchRow& row : rows) table += row.line;
  return table;
}

}  // namespace

std::vector<std::string> recordingsIn(const std::vector<std::string>& places) {
  std::set<std::string> found;
  for (const std::string& place : places) {
    const fs::path path = pathOf(place);
    if (!fs::exists(path)) throw ToolError(place, "does not exist");
    if (fs::is_directory(path))
      addFolder(path, found);
    else
      found.insert(genericUtf8Of(path));
  }
  return {found.begin(), found.end()};
}

int runBatch(const std::vector<std::string>& recordings, const BatchOptions& options) {
  for (const std::string& output : {options.output, options.output + ".part"}) {
    requireApart(output, recordings);
    requireApart(output, {options.analysis.factorsFile});
  }
  requireWritable(options.output, "", options.force);
  try {
    BatchJournal journal(options);
    const std::vector<BatchRow> rows = Workers(recordings, options, journal).run();
    writeWhole(options.output, tableOf(rows), options.force);
    journal.remove();
    const auto errors = std::count_if(rows.begin(), rows.end(), [](const BatchRow& row) { return row.hasError; });
    if (errors > 0)
      tell(options.output, std::to_string(errors) + " of " + std::to_string(rows.size()) + " rows have an error");
    return errors > 0 ? failed : done;
  } catch (const RuntimeError& fault) {
    throw ToolError(options.output, "cannot be written: " + faultText(fault));
  }
}

}  // namespace korvinel::tool
