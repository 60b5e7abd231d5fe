#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

#include "frame/program_values.h"
#include "platform/companion_windows.h"
#include "platform/operation_edge.h"
#include "platform/platform.h"

namespace korvinel {

struct MainState;
namespace guidance {
struct Settings;
}

/// The report window with its comment window, on the screen. There is one report at a time.
class ReportWindows : public platform::CompanionWindows {
 public:
  ReportWindows(ProgramValues& shared, platform::OperationEdge& edge);
  ~ReportWindows() override;

  /// To be called before anything is shown. `main`: the main window, which owns the others. `settings`: remembers where
  /// the report was. All arguments must outlive this.
  void attach(QWidget& main, platform::Platform& host, guidance::Settings& settings);

  void showReport() override;
  void closeReport() override;
  void showComments() override;
  void showMain() override;
  void hideAll();  ///< when the program ends

  /// Writes into the open windows for which examination they stand, now that `state` may hold another.
  void showStanding(const MainState& state);

 private:
  struct Report;

  void reportClosed();
  void forgetClosed();

  ProgramValues& shared_;
  platform::OperationEdge& edge_;
  QWidget* main_ = nullptr;
  platform::Platform* host_ = nullptr;
  guidance::Settings* settings_ = nullptr;
  std::unique_ptr<Report> open_;
  std::vector<std::unique_ptr<Report>> closed_;  ///< whose operations may still be under way
  QTimer forgetting_;
};

}  // namespace korvinel
