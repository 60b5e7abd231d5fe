#include "app/program.h"

#include <QApplication>

#include "app/window_places.h"
#include "frame/fault_sentence.h"
#include "platform/disk/installation.h"
#include "platform/host_paths.h"
#include "wiring/main_wiring.h"

namespace korvinel {

Program::Program(std::string dataFolder)
    : dataFolder_(std::move(dataFolder)),
      paths_{[this](const std::string& path) { return platform::hostPath(dataFolder_, path); },
             [this](const std::string& path) { return platform::programPath(dataFolder_, path); }},
      serialPort_([this](int portNumber) { return platform::serialDevice(dataFolder_, portNumber); }),
      view_(window_, [this] { return mayClose(); }),
      suddenEnd_(signals_.descriptor(), {[this] {
                                           endAtOnce();
                                           platform::EndSignals::endSoon();
                                         },
                                         [this] { endAtOnce(); },
                                         [this] {
                                           displayIsThere_ = false;
                                           endAtOnce();
                                         }}) {
  edge_.onFault = [this](const std::exception& fault) { tell(fault); };
  edge_.onEnd = [this] { end(); };
  tieControls(state_, edge_);
  guidance_.emplace(
      state_, edge_, view_, [this](int port) { return platform::serialDevice(dataFolder_, port); }, settings_);
  guidance_->follow([this] { windows_.showStanding(state_); });
  aids_.emplace(state_, view_, *guidance_, settings_, wakefulness_, [this] { return isTrial(); });
  windows_.attach(view_, platform_, settings_.settings);
}

void Program::startUp() {
  platform::installRootWhenAbsent(files_, dataFolder_);
  state_.startUp();
  guidance_->refresh();
}

int Program::run() {
  view_.showFitting(settings_.settings.mainWindow);
  aids_->start();
  const int code = QApplication::exec();
  settings_.save();
  return code;
}

/// An acquisition under way ends first, by its next turn.
bool Program::mayClose() {
  edge_.run([this] { static_cast<void>(state_.closeWindow()); });
  return edge_.ended();
}

/// Leaves every event loop, including those of open dialogs; the operations waiting in them unwind.
void Program::end() {
  if (!displayIsThere_) return;
  settings_.settings.mainWindow = placeOf(view_);
  windows_.hideAll();
  view_.hide();
  QApplication::exit(0);
}

/// Asks nothing any more, even if a box about a recording that could not be saved is already open.
void Program::endAtOnce() {
  state_.nobodyToAsk = 1;
  if (!edge_.ended()) return edge_.run([this] { state_.endWithoutAsking(); });
  edge_.beforeEnd();
  if (displayIsThere_) QApplication::exit(0);
}

/// Also for a recording of the trial that the real program has opened.
bool Program::isTrial() const {
  return guidance::isOfTrial(dataFolder_) || guidance::isOfTrial(paths_.toHost(state_.openFilePath));
}

void Program::tell(const std::exception& fault) {
  const std::string sentence = faultSentence(fault);
  machine_.tell(sentence);
  window_.statusLabel.setText(sentence);
}

}  // namespace korvinel
