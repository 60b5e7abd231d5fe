#include "app/room_aids.h"

#include <QApplication>
#include <utility>

#include "app/guidance.h"
#include "app/main_window_view.h"
#include "guidance/settings_file.h"

namespace korvinel {
namespace {

Sounds* newSounds(guidance::SettingsFile& settings) {
  const auto keep = [&settings](bool on) {
    settings.settings.sounds = on;
    settings.save();
  };
  return new Sounds(settings.settings.sounds, keep, [] { QApplication::beep(); });
}

}  // namespace

RoomAids::RoomAids(const MainState& state, MainWindowView& window, Guidance& guidance, guidance::SettingsFile& settings,
                   platform::Wakefulness& wakefulness, std::function<bool()> isTrial)
    : settings_(settings),
      isTrial_(std::move(isTrial)),
      trial_(new TrialSign),
      sounds_(newSounds(settings)),
      watchfulness_(state, window, *sounds_, wakefulness),
      firstSteps_(state, window.ground(), [this] {
        settings_.settings.firstPageDismissed = true;
        settings_.save();
      }) {
  guidance.addAtLeft(trial_);
  guidance.addAtRight(sounds_);
  guidance.addAtRight(firstSteps_.button());
  guidance.follow([this] { refresh(); });
}

void RoomAids::start() {
  if (!settings_.settings.firstPageDismissed) firstSteps_.showAtStart();
}

void RoomAids::refresh() {
  trial_->showIf(isTrial_());
  watchfulness_.refresh();
  firstSteps_.refresh();
}

}  // namespace korvinel
