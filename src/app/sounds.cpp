#include "app/sounds.h"

#include <utility>

#include "platform/qt/help.h"

namespace korvinel {
namespace {

constexpr int pauseMs = 350;  // shorter ones sound like one
constexpr platform::Help help{
    "Un suono a sette minuti di dati accettati, due alla fine dell'esame, tre se lo strumento non risponde. Nessun "
    "suono mentre un lettore di schermo parla."};

}  // namespace

Sounds::Sounds(bool on, std::function<void(bool)> onSwitched, std::function<void()> sound,
               std::function<bool()> isSpoken)
    : QCheckBox("Suoni"), sound_(std::move(sound)), isSpoken_(std::move(isSpoken)) {
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, QColor(236, 239, 241));  // on the dark bar
  setPalette(colours);
  setChecked(on);
  platform::explain(*this, help);
  pause_.setSingleShot(true);
  pause_.setInterval(pauseMs);
  connect(&pause_, &QTimer::timeout, this, [this] { soundOnce(); });
  connect(this, &QCheckBox::toggled, this, std::move(onSwitched));
}

void Sounds::give(guidance::Cue cue) {
  if (cue == guidance::Cue::none || !isChecked() || isSpoken_()) return;
  left_ = guidance::soundsOf(cue);
  soundOnce();
}

void Sounds::soundOnce() {
  if (left_ == 0) return;
  sound_();
  if (--left_ > 0) pause_.start();
}

}  // namespace korvinel
