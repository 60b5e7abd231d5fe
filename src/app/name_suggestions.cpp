#include "app/name_suggestions.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QWidget>

#include "frame/main_state.h"
#include "frame/main_window.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/qt/qt_text.h"
#include "platform/timing.h"
#include "recording/data_paths.h"

namespace korvinel {
namespace {

constexpr int pieceMs = 4;
constexpr int betweenPiecesMs = 20;
constexpr int onceShownMs = 200;  // after the window

QLineEdit& viewOf(const platform::TextBox& box, QWidget& window) {
  return *window.findChild<QLineEdit*>(platform::toQt(box.name()));
}

}  // namespace

NameSuggestions::NameSuggestions(MainState& state, QWidget& window)
    : state_(state),
      index_(state.host.files, dataFolder),
      subject_(
          new platform::GhostText(viewOf(state.window.subjectBox, window),
                                  [this](const std::string& typed) { return index_.subjects().completionOf(typed); })),
      fileName_(new platform::GhostText(viewOf(state.window.fileNameBox, window),
                                        [this](const std::string& typed) { return fileNameFor(typed); })) {
  QObject::connect(&viewOf(state.window.subjectBox, window), &QLineEdit::textChanged, fileName_,
                   [this] { fileName_->refresh(); });
  reading_.setInterval(betweenPiecesMs);
  QObject::connect(&reading_, &QTimer::timeout, &reading_, [this] { readSome(); });
  QTimer::singleShot(onceShownMs, &reading_, [this] {
    isToLook_ = true;
    refresh();
  });
}

bool NameSuggestions::isBusy() const { return state_.acquisitionPending() || state_.fileLoopRunning == 1; }

void NameSuggestions::refresh() {
  if (state_.acquisitionPending()) isToLook_ = true;
  if (isBusy()) {
    reading_.stop();
  } else if (isToLook_) {
    isToLook_ = false;
    index_.look();
  }
  if (!isBusy() && !index_.isComplete() && !reading_.isActive()) reading_.start();
  const platform::TextBox& subject = state_.window.subjectBox;
  const platform::TextBox& file = state_.window.fileNameBox;
  const std::string now = subject.text() + "\r" + file.text() + (file.readOnly() ? "\r1" : "\r0");
  if (now == shownFor_) return;
  shownFor_ = now;
  subject_->refresh();
  fileName_->refresh();
}

void NameSuggestions::readSome() {
  if (isBusy()) return reading_.stop();
  QElapsedTimer piece;
  for (piece.start(); !index_.isComplete() && piece.elapsed() < pieceMs;) index_.readOne();
  if (!index_.isComplete()) return;
  reading_.stop();
  subject_->refresh();
  fileName_->refresh();
}

std::string NameSuggestions::fileNameFor(const std::string& typed) const {
  const std::string suggestion =
      guidance::suggestedFileName(state_.window.subjectBox.text(), state_.host.clock.localTime(),
                                  [this](const std::string& name) { return isUsable(name); });
  return guidance::restOf(suggestion, typed).empty() ? "" : suggestion;
}

/// As the program's own check at Start: a free name that a file can have.
bool NameSuggestions::isUsable(const std::string& name) const {
  const std::string file = name + ".QVD";
  auto& files = state_.host.files;
  return !index_.hasFile(file) && !files.exists(dataFolder + file) &&
         files.nameFault(dataFolder, file) == platform::NameFault::none;
}

}  // namespace korvinel
