#include "app/report_windows.h"

#include <QPointer>

#include "app/comment_window_view.h"
#include "app/report_window_view.h"
#include "app/window_places.h"
#include "report/report_state.h"
#include "report/report_window.h"
#include "wiring/report_wiring.h"

namespace korvinel {
namespace {

void bringForward(QWidget& window) {
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace

/// The views are also children of the main window, so they may be destroyed before their models, never after.
struct ReportWindows::Report {
  Report(ProgramValues& shared, platform::Platform& host) : state(window, comments, shared, host) {}
  ~Report() { delete view; }
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  ReportWindow window;
  CommentWindow comments;
  ReportState state;
  guidance::ReportOrigin origin;
  QPointer<ReportWindowView> view;
  QPointer<CommentWindowView> commentView;
};

ReportWindows::ReportWindows(ProgramValues& shared, platform::OperationEdge& edge) : shared_(shared), edge_(edge) {
  forgetting_.setSingleShot(true);
  QObject::connect(&forgetting_, &QTimer::timeout, &forgetting_, [this] { forgetClosed(); });
}

ReportWindows::~ReportWindows() = default;

void ReportWindows::attach(QWidget& main, platform::Platform& host, guidance::Settings& settings) {
  settings_ = &settings;
  main_ = &main;
  host_ = &host;
}

void ReportWindows::showReport() {
  if (open_) return bringForward(*open_->view);
  open_ = std::make_unique<Report>(shared_, *host_);
  tieReport(open_->state, edge_);
  open_->view = new ReportWindowView(open_->window, main_, [this] { reportClosed(); });
  open_->origin = guidance::reportOrigin(shared_);
  open_->view->showFitting(settings_->reportWindow);
  runReport(open_->state, edge_, &ReportState::loadReport);
}

void ReportWindows::closeReport() {
  if (open_) open_->view->close();
}

void ReportWindows::reportClosed() {
  if (!open_) return;
  settings_->reportWindow = placeOf(*open_->view);
  closed_.push_back(std::move(open_));
  Report& report = *closed_.back();
  delete report.commentView;
  runReport(report.state, edge_, &ReportState::closeReport);
  forgetting_.start(0);
}

/// A report closed while one of its operations waits is kept until that has ended.
void ReportWindows::forgetClosed() {
  constexpr int lookAgainMs = 50;
  std::erase_if(closed_, [](const auto& report) { return report->state.operationsUnderWay == 0; });
  if (!closed_.empty()) forgetting_.start(lookAgainMs);
}

void ReportWindows::showComments() {
  if (!open_) return;
  if (open_->commentView) return bringForward(*open_->commentView);
  open_->commentView = new CommentWindowView(open_->comments, open_->view);
  open_->commentView->setAttribute(Qt::WA_DeleteOnClose);
  // A newly opened window is empty.
  QObject::connect(open_->commentView, &QObject::destroyed, open_->view,
                   [&comments = open_->comments] { comments.text.clear(); });
  open_->commentView->show();
}

void ReportWindows::showStanding(const MainState& state) {
  if (!open_ || !open_->view) return;
  const auto standing = guidance::reportStanding(open_->origin, open_->state, state);
  open_->view->showStanding(standing);
  if (open_->commentView) open_->commentView->showStanding(standing);
}

void ReportWindows::showMain() { bringForward(*main_); }

void ReportWindows::hideAll() {
  if (!open_) return;
  settings_->reportWindow = placeOf(*open_->view);
  delete open_->commentView;
  open_->view->hide();
}

}  // namespace korvinel
