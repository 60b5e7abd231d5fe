#include "recording/recording_names.h"

#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/timing.h"
#include "recording/data_paths.h"
#include "recording/safe_keeping.h"
#include "values/code_page.h"

namespace korvinel {
namespace {

using platform::NameFault;
using platform::TextBox;

constexpr std::string_view ending = ".QVD";

/// Shows what is wrong and focuses the box to be corrected.
bool refuse(MainState& state, TextBox& box, const std::string& message) {
  state.host.dialogs.notice(message);
  box.requestFocus();
  return false;
}

bool isTaken(platform::Files& files, const std::string& folder, const std::string& name) {
  for (const std::string& listed : files.list(folder, std::string(ending)))
    if (upperCase(listed) == upperCase(name)) return true;
  return files.exists(folder + name);
}

bool holdsOnlyDotsAndBlanks(const std::string& typed) { return typed.find_first_not_of(". ") == std::string::npos; }

/// Why the typed name, with its ending, cannot be a file's; "" if it can.
std::string whyNoFileName(MainState& state, const std::string& typed) {
  if (holdsOnlyDotsAndBlanks(typed)) return "È fatto solo di punti e spazi.";
  if (typed.starts_with('.')) return "Comincia con un punto, e il file resterebbe nascosto.";
  switch (state.host.files.nameFault(dataFolder, typed + std::string(ending))) {
    case NameFault::tooLong: return "È troppo lungo per il disco.";
    case NameFault::device: return "Il sistema lo riserva a un dispositivo.";
    case NameFault::letters: return "Contiene caratteri che il nome di un file non può avere.";
    case NameFault::none: break;
  }
  return "";
}

bool fileNameIsUsable(MainState& state) {
  TextBox& box = state.window.fileNameBox;
  const std::string typed = box.text();
  if (isBlank(typed)) return refuse(state, box, "Scrivere nome del file!");
  if (const std::string reason = whyNoFileName(state, typed); !reason.empty())
    return refuse(state, box, "Questo nome di file non si può usare!\r" + reason + "\rCambiare nome!");
  // The recording's name always gets the ending, even a second one, unlike the name that checkFileName checks.
  if (isTaken(state.host.files, dataFolder, typed + std::string(ending))) state.fileNameExists = 1;
  if (state.fileNameExists == 1) return refuse(state, box, "Questo nome di file esiste gia'!Cambiare nome!");
  return true;
}

bool subjectIsUsable(MainState& state) {
  TextBox& box = state.window.subjectBox;
  if (isBlank(box.text())) return refuse(state, box, "Scrivere nome del soggetto!");
  if (const std::string letters = lettersOutsidePage(box.text()); !letters.empty())
    return refuse(state, box,
                  "Il file non può contenere queste lettere del nome del soggetto:\r" + letters +
                      "\rScrivere il nome con altre lettere!");
  return true;
}

/// Removes the last letter.
void shorten(std::string& utf8) {
  while (!utf8.empty()) {
    const auto byte = static_cast<unsigned char>(utf8.back());
    utf8.pop_back();
    if ((byte & 0xC0U) != 0x80U) return;
  }
}

std::string copyOf(platform::Files& files, const std::string& folder, std::string stem, int copy) {
  const std::string tail = " (" + std::to_string(copy) + ")" + std::string(ending);
  while (!stem.empty() && files.nameFault(folder, stem + tail) == NameFault::tooLong) shorten(stem);
  return stem + tail;
}

}  // namespace

bool MainState::namesAreUsable() {
  checkFileName();
  if (!shared.inItalian()) return true;
  return fileNameIsUsable(*this) && subjectIsUsable(*this);
}

void MainState::takeNames() {
  recordingDate = platform::dateText(host.clock.localTime());
  shared.dataFileName = window.fileNameBox.text() + std::string(ending);
  shared.subjectName = window.subjectBox.text();
}

void lockNames(MainState& state, bool locked) {
  state.window.fileNameBox.setReadOnly(locked);
  state.window.subjectBox.setReadOnly(locked);
}

std::string freeFileName(platform::Files& files, const std::string& folder, const std::string& name) {
  const std::string stem = name.substr(0, name.size() - (name.ends_with(ending) ? ending.size() : 0));
  std::string free = name;
  for (int copy = 2; isTaken(files, folder, free); ++copy) free = copyOf(files, folder, stem, copy);
  return free;
}

void takeFreeName(MainState& state) {
  const std::string free = freeFileName(state.host.files, dataFolder, state.shared.dataFileName);
  if (free == state.shared.dataFileName) return;
  addNotice(state, "Durante la registrazione è comparso un altro file di nome\r" + state.shared.dataFileName +
                       "\rIl nome di questo esame è\r" + free);
  state.shared.dataFileName = free;
  state.keepNotesAndNames();
}

}  // namespace korvinel
