#pragma once

#include "platform/operation_edge.h"
#include "report/report_state.h"

namespace korvinel {

/// Ties the report window's controls to the operations of its record. Every event runs behind the edge; a fault ends
/// its operation only, and the report's status label says why. All of them must live as long as the window.
void tieReport(ReportState& state, platform::OperationEdge& edge);

/// The same for an operation that no control starts: loadReport, closeReport.
void runReport(ReportState& state, platform::OperationEdge& edge, void (ReportState::*operation)());

}  // namespace korvinel
