#include "recording_tool/edf_file.h"

#include <edflib.h>

#include <algorithm>

#include "recording_tool/host_files.h"
#include "recording_tool/tool_error.h"

namespace korvinel::tool {
namespace {

std::string refusal(int code) {
  switch (code) {
    case EDFLIB_FILE_CONTAINS_FORMAT_ERRORS:
      return "is no valid EDF or BDF file: its header contradicts the format or the file's size";
    case EDFLIB_FILE_IS_DISCONTINUOUS: return "is discontinuous (EDF+D), which cannot be imported";
    case EDFLIB_MALLOC_ERROR: return "needs more memory than there is";
    case EDFLIB_FILE_ALREADY_OPENED: return "is being read already";
    default: return "cannot be read as EDF or BDF";
  }
}

template <typename Number, typename Read>
std::vector<Number> readSome(const EdfFile& file, int count, Read&& read) {
  std::vector<Number> samples(static_cast<std::size_t>(count));
  const int taken = read(samples.data());
  if (taken < 0) throw ToolError(file.shownAs(), "cannot be read to its end");
  samples.resize(static_cast<std::size_t>(taken));
  return samples;
}

}  // namespace

std::string trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(' ');
  if (begin == std::string::npos) return "";
  return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

std::string personOf(const edf_hdr_struct& header) {
  const bool plus = header.filetype == EDFLIB_FILETYPE_EDFPLUS || header.filetype == EDFLIB_FILETYPE_BDFPLUS;
  const std::string name = trimmed(plus ? header.patient_name : header.patient);
  return name == "X" ? "" : name;
}

EdfFile::EdfFile(const std::string& path, const std::string& shownAs)
    : shownAs_(shownAs), header_(std::make_unique<edf_hdr_struct>()) {
  if (edfopen_file_readonly(path.c_str(), header_.get(), EDFLIB_READ_ALL_ANNOTATIONS) == 0) return;
  throw ToolError(shownAs, refusal(header_->filetype));
}

EdfFile::~EdfFile() { edfclose_file(header_->handle); }

std::vector<std::string> EdfFile::labels() const {
  std::vector<std::string> labels;
  labels.reserve(static_cast<std::size_t>(header_->edfsignals));
  for (int signal = 0; signal < header_->edfsignals; ++signal)
    labels.push_back(trimmed(header_->signalparam[signal].label));
  return labels;
}

double EdfFile::samplesPerSecond(int signal) const {
  return header_->signalparam[signal].smp_in_datarecord * static_cast<double>(EDFLIB_TIME_DIMENSION) /
         static_cast<double>(header_->datarecord_duration);
}

std::vector<Annotation> EdfFile::annotations() const {
  std::vector<Annotation> all;
  for (long long n = 0; n < header_->annotations_in_file; ++n) {
    edf_annotation_struct annotation{};
    if (edf_get_annotation(header_->handle, static_cast<int>(n), &annotation) != 0) break;
    all.push_back(
        {static_cast<double>(annotation.onset) / static_cast<double>(EDFLIB_TIME_DIMENSION), annotation.annotation});
  }
  std::stable_sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.onset < b.onset; });
  return all;
}

std::vector<double> EdfFile::readPhysical(int signal, int count) const {
  return readSome<double>(*this, count,
                          [&](double* to) { return edfread_physical_samples(header_->handle, signal, count, to); });
}

std::vector<int> EdfFile::readDigital(int signal, int count) const {
  return readSome<int>(*this, count,
                       [&](int* to) { return edfread_digital_samples(header_->handle, signal, count, to); });
}

}  // namespace korvinel::tool
