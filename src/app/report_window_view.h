#pragma once

#include <QMainWindow>
#include <functional>
#include <optional>

#include "app/veils.h"
#include "guidance/report_standing.h"
#include "guidance/settings.h"
#include "platform/qt/help.h"
#include "platform/qt/plan_ground.h"
#include "report/report_window.h"

namespace korvinel {

class StandingFrame;

/// The report window on the screen: every control and surface at its place in the report's plan, scaled to the client
/// area.
class ReportWindowView : public QMainWindow {
 public:
  /// `onClosed`: called once the window has been closed, by the user or by the program.
  ReportWindowView(ReportWindow& model, QWidget* owner, std::function<void()> onClosed);

  /// Writes beside the report what it stands for, and covers its graphs if it could not be calculated.
  void showStanding(const guidance::ReportStanding& standing);

  /// Where it was last; else at 1024 x 733 pixels, or filling a screen that is too small for it.
  void showFitting(const std::optional<guidance::WindowPlace>& remembered = {});

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // In the order of the Tab key
  void addPanels(ReportWindow& model);
  void addCheckBoxes(ReportWindow& model);
  void addButtons(ReportWindow& model);
  void addLabels(ReportWindow& model);
  void put(QWidget* widget, const platform::Rect& place, const platform::Help& help);
  void addFrame(const platform::Rect& place);
  void addStanding();

  std::function<void()> onClosed_;
  platform::PlanGround* ground_ = nullptr;
  StandingFrame* standing_ = nullptr;
  Veil* veil_ = nullptr;
};

}  // namespace korvinel
