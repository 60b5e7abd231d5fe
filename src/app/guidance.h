#pragma once

#include <QTimer>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/graph_guidance.h"
#include "app/interrupted_examinations.h"
#include "app/lamp_row.h"
#include "app/name_suggestions.h"
#include "app/status_line.h"
#include "guidance/refusal.h"
#include "guidance/signal_history.h"

class QHBoxLayout;

namespace korvinel {

class MainWindowView;
struct MainState;
namespace guidance {
class SettingsFile;
}
namespace platform {
class Button;
class OperationEdge;
}  // namespace platform

/// What a colleague beside the operator would say, in a bar below the window's plan. It reads the record and never
/// writes it; without it the program works in the same way.
class Guidance {
 public:
  /// `serialDevice`: the device of a port number on this machine. All arguments must outlive it.
  Guidance(MainState& state, platform::OperationEdge& edge, MainWindowView& window,
           std::function<std::string(int portNumber)> serialDevice, guidance::SettingsFile& settings);

  void refresh();  ///< shows the record as it is now
  /// Lets others follow the record too: called with each refresh.
  void follow(std::function<void()> follower) { followers_.push_back(std::move(follower)); }
  void addAtLeft(QWidget* widget);
  void addAtRight(QWidget* widget);

 private:
  void keepQuickNotes();
  void watchCommands();
  void watch(platform::Button& button, guidance::Command command);
  void tellRefusal(guidance::Command command);
  [[nodiscard]] guidance::Status status() const;
  [[nodiscard]] guidance::Status withReminders(guidance::Status status) const;

  MainState& state_;
  std::function<std::string(int)> serialDevice_;
  QWidget* bar_;
  QHBoxLayout* inBar_;
  StatusLine* statusLine_;
  LampRow* lamps_;
  guidance::SignalHistory signalHistory_;
  GraphGuidance graphs_;
  guidance::SettingsFile& settings_;
  InterruptedExaminations interrupted_;
  NameSuggestions names_;
  std::vector<std::function<void()>> followers_;
  QTimer beat_;          ///< runs only while something is under way
  QTimer refusalShown_;  ///< runs while `refusal_` is shown
  std::string refusal_;
};

}  // namespace korvinel
