#include "app/guidance.h"

#include <QHBoxLayout>
#include <utility>

#include "app/main_window_view.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "guidance/settings_file.h"
#include "guidance/status.h"
#include "platform/colour.h"
#include "platform/operation_edge.h"
#include "platform/qt/qt_text.h"

namespace korvinel {
namespace {

constexpr int beatMs = 250;            // often enough for running seconds
constexpr int refusalShownMs = 6'000;  // long enough to be read

QWidget* newBar(QWidget* parent) {
  auto* bar = new QWidget(parent);
  bar->setObjectName("Guida");
  bar->setAutoFillBackground(true);
  QPalette colours = bar->palette();
  colours.setColor(QPalette::Window, platform::toQt(rgbOf(platform::Colour::graphArea)));
  bar->setPalette(colours);
  return bar;
}

}  // namespace

Guidance::Guidance(MainState& state, platform::OperationEdge& edge, MainWindowView& window,
                   std::function<std::string(int)> serialDevice, guidance::SettingsFile& settings)
    : state_(state),
      serialDevice_(std::move(serialDevice)),
      bar_(newBar(&window)),
      inBar_(new QHBoxLayout(bar_)),
      statusLine_(new StatusLine(bar_)),
      lamps_(new LampRow(bar_)),
      graphs_(state, window.ground()),
      settings_(settings),
      interrupted_(state, &window, [this] { refresh(); }),
      names_(state, window) {
  inBar_->setContentsMargins(10, 0, 10, 6);
  inBar_->addWidget(statusLine_, 1);
  inBar_->addWidget(lamps_);
  window.addBelow(interrupted_.view());
  window.addBelow(bar_);
  keepQuickNotes();
  watchCommands();
  beat_.setInterval(beatMs);
  QObject::connect(&beat_, &QTimer::timeout, bar_, [this] { refresh(); });
  refusalShown_.setSingleShot(true);
  refusalShown_.setInterval(refusalShownMs);
  QObject::connect(&refusalShown_, &QTimer::timeout, bar_, [this] {
    refusal_.clear();
    refresh();
  });
  edge.afterwards = [this] { refresh(); };
}

void Guidance::keepQuickNotes() {
  graphs_.notes().setQuickNotes(settings_.settings.quickNotes);
  graphs_.notes().onQuickNotesEdited = [this](const std::vector<std::string>& notes) {
    settings_.settings.quickNotes = notes;
    settings_.save();
  };
}

void Guidance::watchCommands() {
  using guidance::Command;
  MainWindow& window = state_.window;
  watch(window.Starts1, Command::start);
  watch(window.Stopd1, Command::stop);
  watch(window.Registra, Command::record);
  watch(window.Annotax, Command::note);
  watch(window.Artefact, Command::threshold);
  watch(window.Openx, Command::open);
  watch(window.Displayx, Command::replay);
  watch(window.Analisi, Command::report);
}

/// Looks at the record before the command acts on it, and while it acts: a command may wait for long.
void Guidance::watch(platform::Button& button, guidance::Command command) {
  button.onPressed = [this, command, act = button.onPressed] {
    tellRefusal(command);
    beat_.start();
    act();
  };
}

void Guidance::tellRefusal(guidance::Command command) {
  refusal_ = guidance::whyRefused(command, state_);
  refusal_.empty() ? refusalShown_.stop() : refusalShown_.start();
  refresh();
}

guidance::Status Guidance::status() const {
  if (!refusal_.empty()) return {guidance::Tone::warning, refusal_, refusal_};
  return withReminders(guidance::statusOf(state_, {serialDevice_(state_.serialPort)}));
}

/// What should not be forgotten, while nothing else is going on.
guidance::Status Guidance::withReminders(guidance::Status status) const {
  if (status.tone != guidance::Tone::calm) return status;
  for (const std::string& reminder : {settings_.notice(), interrupted_.reminder()}) {
    if (reminder.empty()) continue;
    status.text += " · " + reminder;
    status.spoken += " · " + reminder;
  }
  return status;
}

void Guidance::addAtLeft(QWidget* widget) { inBar_->insertWidget(0, widget); }

void Guidance::addAtRight(QWidget* widget) { inBar_->addWidget(widget); }

void Guidance::refresh() {
  interrupted_.refresh();
  names_.refresh();
  statusLine_->show(status());
  signalHistory_.follow(state_);
  lamps_->display(signalHistory_);
  graphs_.refresh();
  for (const auto& follower : followers_) follower();
  const bool isUnderWay = state_.acquisitionPending() || state_.fileLoopRunning == 1 || state_.assembling == 1;
  if (isUnderWay == beat_.isActive()) return;
  isUnderWay ? beat_.start() : beat_.stop();
}

}  // namespace korvinel
