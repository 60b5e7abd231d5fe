#include "app/interrupted_examinations.h"

#include <QTimer>
#include <utility>

#include "frame/main_state.h"
#include "guidance/interrupted_advice.h"
#include "platform/machine.h"
#include "platform/platform.h"
#include "recording/interrupted.h"
#include "recording/lock_note.h"

namespace korvinel {
namespace {

constexpr int onceShownMs = 100;  // after the window

}  // namespace

InterruptedExaminations::InterruptedExaminations(MainState& state, QWidget* parent, std::function<void()> onChange)
    : state_(state), onChange_(std::move(onChange)), view_(parent, {[this] { recover(); }, [this] { putOff(); }}) {
  QTimer::singleShot(onceShownMs, &view_, [this] {
    isToLook_ = true;
    refresh();
  });
}

std::string InterruptedExaminations::lockNote() const {
  return korvinel::lockNote(state_.host.machine.identity(), "recupero di un esame interrotto");
}

void InterruptedExaminations::refresh() {
  const bool busy = state_.acquisitionPending() || state_.assembling == 1;
  view_.setRecoverable(!busy);
  if (busy) isToLook_ = true;
  if (busy || !isToLook_) return;
  isToLook_ = false;
  QTimer::singleShot(0, &view_, [this] { look(); });
}

void InterruptedExaminations::look() {
  if (state_.acquisitionPending()) return;
  found_ = interruptedRecordings(state_.host.files, lockNote());
  show();
}

void InterruptedExaminations::show(const std::string& before) {
  if (found_.size() < putOff_) putOff_ = found_.size();
  if (found_.size() > putOff_) {
    const int count = static_cast<int>(found_.size());
    const std::string text = guidance::interruptedText(found_.front(), 1, count);
    view_.tell(before.empty() ? text : before + " " + text, true);
  } else if (before.empty()) {
    view_.hide();
  } else {
    view_.tell(before, false);
  }
  onChange_();
}

/// Refused while an acquisition is under way, however the button was pressed.
void InterruptedExaminations::recover() {
  if (state_.acquisitionPending() || state_.assembling == 1 || found_.empty()) return;
  const Recovery recovery = recoverInterrupted(state_.host.files, found_.front().temporaryFile, lockNote());
  found_ = interruptedRecordings(state_.host.files, lockNote());
  show(guidance::recoveryText(recovery));
}

void InterruptedExaminations::putOff() {
  putOff_ = found_.size();
  view_.hide();
  onChange_();
}

std::string InterruptedExaminations::reminder() const {
  return guidance::interruptedReminder(static_cast<int>(putOff_));
}

}  // namespace korvinel
