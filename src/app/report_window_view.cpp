#include "app/report_window_view.h"

#include <QCloseEvent>
#include <QFrame>
#include <QSlider>

#include "app/report_window_help.h"
#include "app/window_places.h"
#include "platform/qt/control_views.h"
#include "platform/qt/qt_text.h"
#include "report/report_geometry.h"

namespace korvinel {
namespace {

namespace help = report_window_help;
namespace plan = report_geometry;

constexpr QSize smallestClient(640, 400);
constexpr double letterHeight = 16;  // of the plan
constexpr int twipsPerPixel = 15;    // twentieths of a point, 96 dots an inch
constexpr QSize openingClient(15360 / twipsPerPixel, 11000 / twipsPerPixel);
constexpr platform::Rect standingPlace{plan::checkBoxFrame.x, 516, plan::checkBoxFrame.width, 98};

}  // namespace

/// A framed text that fills its frame.
class StandingFrame : public QFrame {
 public:
  explicit StandingFrame(QWidget* parent) : QFrame(parent) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
  }
  void write(const std::string& text, bool calm) {
    model_.setText(text);
    model_.setInk(calm ? platform::Colour::black : platform::Colour::red);
    setPalette(calm ? QPalette() : QPalette(QColor(255, 243, 205)));
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QFrame::resizeEvent(event);
    constexpr int margin = 7;
    text_.setGeometry(rect().adjusted(margin, margin, -margin, -margin));
  }

 private:
  platform::Label model_{"Che cosa riguarda il rapporto"};
  platform::LabelView text_{model_, this, platform::LabelView::Lines::broken};  // gone before its model
};

ReportWindowView::ReportWindowView(ReportWindow& model, QWidget* owner, std::function<void()> onClosed)
    : QMainWindow(owner), onClosed_(std::move(onClosed)) {
  setWindowTitle("Korvinel - Analisi finale");
  ground_ = new platform::PlanGround(model.ground, letterHeight);
  explain(*ground_, help::ground);
  setCentralWidget(ground_);
  setMinimumSize(smallestClient);
  addPanels(model);
  addCheckBoxes(model);
  addButtons(model);
  addLabels(model);
  addStanding();
}

void ReportWindowView::put(QWidget* widget, const platform::Rect& place, const platform::Help& text) {
  ground_->put(widget, place);
  explain(*widget, text);
}

void ReportWindowView::addPanels(ReportWindow& model) {
  for (int i = 1; i <= 4; ++i) {
    const auto index = static_cast<std::size_t>(i) - 1;
    put(new platform::SurfaceView(model.spectrumOf(i), ground_), plan::panels[index], help::spectrum);
    put(new platform::SurfaceView(model.coherenceOf(i), ground_), plan::panels[index + 4], help::coherence);
  }
}

void ReportWindowView::addCheckBoxes(ReportWindow& model) {
  addFrame(plan::checkBoxFrame);
  put(makeView(model.maximumCheck, ground_), plan::maximumCheck, help::maximumCheck);
  put(makeView(model.meanCheck, ground_), plan::meanCheck, help::meanCheck);
  auto* slider = new QSlider(Qt::Horizontal, ground_);
  tie(model.scaleSlider, *slider);
  put(slider, plan::scaleSlider, help::scaleSlider);
}

void ReportWindowView::addButtons(ReportWindow& model) {
  addFrame(plan::buttonFrame);
  const auto add = [this](platform::Button& button, const platform::Rect& place, const platform::Help& text) {
    put(new platform::ButtonView(button, ground_), place, text);
  };
  add(model.exitButton, plan::exitButton, help::exitButton);
  add(model.numbersButton, plan::numbersButton, help::numbersButton);
  add(model.printButton, plan::printButton, help::printButton);
  add(model.explainButton, plan::explainButton, help::explainButton);
  add(model.commentButton, plan::commentButton, help::commentButton);
}

void ReportWindowView::addLabels(ReportWindow& model) {
  const auto add = [this](platform::Label& label, const platform::Rect& place, const platform::Help& text) {
    put(new platform::LabelView(label, ground_), place, text);
  };
  add(model.scaleLabel, plan::scaleLabel, help::scaleLabel);
  add(model.intervalLabel, plan::intervalLabel, help::intervalLabel);
  put(new platform::LabelView(model.statusLabel, ground_, platform::LabelView::Lines::broken), plan::statusLabel,
      help::statusLabel);
}

void ReportWindowView::addFrame(const platform::Rect& place) {
  auto* frame = new QFrame(ground_);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  frame->setAutoFillBackground(true);
  ground_->put(frame, place);
}

/// The frame has no name for a screen reader, only the label in it has.
void ReportWindowView::addStanding() {
  standing_ = new StandingFrame(ground_);
  ground_->put(standing_, standingPlace);
  veil_ = new Veil(ground_, "Perché il rapporto è coperto");
  const platform::Rect& first = plan::panels.front();
  const platform::Rect& last = plan::panels.back();
  ground_->put(veil_, {first.x, first.y, last.right() - first.x, last.bottom() - first.y});
}

void ReportWindowView::showStanding(const guidance::ReportStanding& standing) {
  const std::string& warning = standing.missing.empty() ? standing.doubtful : standing.missing;
  standing_->write(warning.empty() ? standing.line : standing.line + " " + warning,
                   standing.current && warning.empty());
  veil_->cover(platform::toQt(standing.missing));
}

void ReportWindowView::showFitting(const std::optional<guidance::WindowPlace>& remembered) {
  showWhereItWas(*this, remembered, openingClient);
}

void ReportWindowView::closeEvent(QCloseEvent* event) {
  event->accept();
  onClosed_();
}

}  // namespace korvinel
