#pragma once

namespace korvinel::platform {
class OperationEdge;
}

namespace korvinel {

struct ReportState;

/// Connects the report window's controls to the operations of its record, each through the edge: a fault ends its
/// operation only, and the report's status label shows it. All arguments must live as long as the window.
void tieReport(ReportState& state, platform::OperationEdge& edge);

/// Runs an operation in the same way without a control: loadReport, closeReport.
void runReport(ReportState& state, platform::OperationEdge& edge, void (ReportState::*operation)());

}  // namespace korvinel
