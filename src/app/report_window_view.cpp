#include "app/report_window_view.h"

#include <QCloseEvent>
#include <QFrame>
#include <QSlider>

#include "platform/qt/control_views.h"
#include "report/report_geometry.h"

namespace korvinel {
namespace {

namespace plan = report_geometry;

constexpr QSize smallestClient(900, 620);
constexpr double letterHeight = 16;  // of the plan

}  // namespace

ReportWindowView::ReportWindowView(ReportWindow& model, QWidget* owner, std::function<void()> onClosed)
    : QMainWindow(owner), onClosed_(std::move(onClosed)) {
  setWindowTitle("Korvinel - Analisi finale");
  setPalette(platform::panelColours());
  ground_ = new platform::PlanGround(model.ground, letterHeight);
  setCentralWidget(ground_);
  setMinimumSize(smallestClient);
  addPanels(model);
  addLabel(model.intervalLabel, plan::intervalLabel);
  addCheckBoxes(model);
  addButtons(model);
  addLabel(model.statusLabel, plan::statusLabel);
}

void ReportWindowView::addPanels(ReportWindow& model) {
  for (int i = 1; i <= 4; ++i) {
    const auto index = static_cast<std::size_t>(i) - 1;
    ground_->put(new platform::SurfaceView(model.spectrumOf(i), ground_), plan::panels[index]);
    ground_->put(new platform::SurfaceView(model.coherenceOf(i), ground_), plan::panels[index + 4]);
  }
}

void ReportWindowView::addCheckBoxes(ReportWindow& model) {
  addFrame(plan::checkBoxFrame);
  ground_->put(makeView(model.maximumCheck, ground_), plan::maximumCheck);
  ground_->put(makeView(model.meanCheck, ground_), plan::meanCheck);
  addLabel(model.scaleLabel, plan::scaleLabel);
  auto* slider = new QSlider(Qt::Horizontal, ground_);
  tie(model.scaleSlider, *slider);
  ground_->put(slider, plan::scaleSlider);
}

void ReportWindowView::addButtons(ReportWindow& model) {
  addFrame(plan::buttonFrame);
  const auto add = [this](platform::Button& button, const platform::Rect& place) {
    ground_->put(new platform::ButtonView(button, ground_), place);
  };
  add(model.exitButton, plan::exitButton);
  add(model.numbersButton, plan::numbersButton);
  add(model.printButton, plan::printButton);
  add(model.explainButton, plan::explainButton);
  add(model.commentButton, plan::commentButton);
}

void ReportWindowView::addLabel(platform::Label& model, const platform::Rect& place) {
  ground_->put(new platform::LabelView(model, ground_), place);
}

void ReportWindowView::addFrame(const platform::Rect& place) {
  auto* frame = new QFrame(ground_);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  frame->setAutoFillBackground(true);
  ground_->put(frame, place);
}

void ReportWindowView::showFitting() { platform::showFitting(*this, {plan::width, plan::height}); }

void ReportWindowView::closeEvent(QCloseEvent* event) {
  event->accept();
  onClosed_();
}

}  // namespace korvinel
