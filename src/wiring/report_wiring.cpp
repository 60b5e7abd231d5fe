#include "wiring/report_wiring.h"

#include "frame/fault_sentence.h"
#include "platform/operation_edge.h"
#include "report/report_state.h"
#include "report/report_window.h"

namespace korvinel {
namespace {

class UnderWay {
 public:
  explicit UnderWay(ReportState& state) : state_(state) { ++state_.operationsUnderWay; }
  ~UnderWay() { --state_.operationsUnderWay; }
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;

 private:
  ReportState& state_;
};

}  // namespace

void runReport(ReportState& state, platform::OperationEdge& edge, void (ReportState::*operation)()) {
  edge.run([&] {
    const UnderWay underWay(state);
    try {
      state.window.statusLabel.setText("");
      (state.*operation)();
    } catch (const std::exception& fault) {
      state.window.statusLabel.setText(faultSentence(fault));
      throw;
    }
  });
}

void tieReport(ReportState& state, platform::OperationEdge& edge) {
  const auto on = [&](void (ReportState::*operation)()) {
    return [&state, &edge, operation] { runReport(state, edge, operation); };
  };
  ReportWindow& window = state.window;
  window.exitButton.onPressed = on(&ReportState::exitCommand);
  window.numbersButton.onPressed = on(&ReportState::numbersCommand);
  window.printButton.onPressed = on(&ReportState::printCommand);
  window.explainButton.onPressed = on(&ReportState::explainCommand);
  window.commentButton.onPressed = on(&ReportState::showCommentReport);
  window.maximumCheck.onClicked = on(&ReportState::maximumClicked);
  window.meanCheck.onClicked = on(&ReportState::meanClicked);
  window.scaleSlider.onMoved = on(&ReportState::scaleMoved);
}

}  // namespace korvinel
