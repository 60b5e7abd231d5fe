#include "app/first_steps.h"

#include <utility>

#include "frame/main_state.h"
#include "frame/main_window.h"
#include "platform/qt/help.h"
#include "platform/qt/plan_ground.h"

namespace korvinel {
namespace {

/// Over the traces, the spectra and the messages; the names, the time strip and the buttons stay free.
constexpr platform::Rect place{10, 10, 712, 530};

constexpr platform::Help help{
    "Mostra la pagina per cominciare: gli elettrodi, i quattro passi di un esame, segnali buoni e cattivi. Non durante "
    "un esame."};

}  // namespace

FirstSteps::FirstSteps(const MainState& state, platform::PlanGround& ground, std::function<void()> onNever)
    : state_(state),
      page_(new FirstPage(&ground,
                          [onNever = std::move(onNever)](bool never) {
                            if (never) onNever();
                          })),
      button_(new QPushButton("?")) {
  ground.put(page_, place);
  button_->setAccessibleName("Mostra la pagina per cominciare");
  button_->setFixedWidth(32);
  platform::explain(*button_, help);
  QObject::connect(button_, &QPushButton::clicked, page_, [this] { present(); });
}

void FirstSteps::showAtStart() { present(); }

void FirstSteps::refresh() {
  button_->setEnabled(isIdle());
  if (page_->isVisible() && (!isIdle() || shown() != whenPresented_)) page_->takeAway();
}

bool FirstSteps::isIdle() const {
  return !state_.acquisitionPending() && state_.fileLoopRunning == 0 && state_.assembling == 0;
}

FirstSteps::Shown FirstSteps::shown() const {
  return {state_.window.startPicture.visible(), state_.openFilePath, state_.decodedBlocks, state_.replayActive == 1};
}

void FirstSteps::present() {
  if (!isIdle()) return;
  whenPresented_ = shown();
  page_->present();
}

}  // namespace korvinel
