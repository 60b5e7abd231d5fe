#include "app/program.h"

#include <QApplication>
#include <algorithm>
#include <cstdio>

#include "app/wiring.h"
#include "platform/disk/installation.h"
#include "platform/host_paths.h"

namespace korvinel {

Program::Program(std::string dataFolder)
    : dataFolder_(std::move(dataFolder)),
      paths_{[this](const std::string& path) { return platform::hostPath(dataFolder_, path); },
             [this](const std::string& path) { return platform::programPath(dataFolder_, path); }},
      serialPort_([this](int portNumber) { return platform::serialDevice(dataFolder_, portNumber); }),
      view_(window_, [this] { return mayClose(); }) {
  edge_.onFault = [this](const std::string& message) { tell(message); };
  edge_.onEnd = [this] { end(); };
  tieControls(state_, edge_);
  windows_.attach(view_, platform_);
}

void Program::startUp() {
  platform::installRootWhenAbsent(files_, dataFolder_);
  state_.startUp();
}

int Program::run() {
  view_.showFitting();
  return QApplication::exec();
}

/// An acquisition under way is ended first, by its next turn.
bool Program::mayClose() {
  edge_.run([this] { static_cast<void>(state_.closeWindow()); });
  return edge_.ended();
}

/// Leaves every event loop, also those of open dialogs; the operations that wait in them unwind.
void Program::end() {
  windows_.hideAll();
  view_.hide();
  QApplication::exit(0);
}

void Program::tell(const std::string& fault) {
  std::string line = fault;
  std::replace(line.begin(), line.end(), '\r', ' ');
  std::fprintf(stderr, "korvinel: operazione interrotta: %s\n", line.c_str());
  window_.statusLabel.setText("Operazione interrotta: " + line);
}

}  // namespace korvinel
