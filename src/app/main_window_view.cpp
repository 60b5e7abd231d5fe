#include "app/main_window_view.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSlider>
#include <QVBoxLayout>
#include <algorithm>

#include "app/head_picture.h"
#include "app/main_window_help.h"
#include "app/window_places.h"
#include "platform/qt/control_views.h"
#include "platform/qt/pointer_surface_view.h"
#include "platform/qt/printed_part.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/surface_view.h"

namespace korvinel {
namespace {

namespace help = main_window_help;

using geometry::Rect;
using platform::ButtonView;
using platform::LabelView;
using platform::SurfaceView;

constexpr QSize smallestClient(640, 400);
constexpr double letterHeight = 13;  // of the plan

/// "Down" and "page down" go forward through the blocks, as on the time strip; the toolkit's slider would go back.
class BlockSlider : public QSlider {
 public:
  using QSlider::QSlider;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Down: return triggerAction(SliderSingleStepAdd);
      case Qt::Key_Up: return triggerAction(SliderSingleStepSub);
      case Qt::Key_PageDown: return triggerAction(SliderPageStepAdd);
      case Qt::Key_PageUp: return triggerAction(SliderPageStepSub);
      default: return QSlider::keyPressEvent(event);
    }
  }
};

}  // namespace

MainWindowView::MainWindowView(MainWindow& model, std::function<bool()> mayClose) : mayClose_(std::move(mayClose)) {
  setWindowTitle("Korvinel - EEG Analysis 4 channels  V 8.1  ita");
  ground_ = new platform::PlanGround(model.axisCaptions, letterHeight);
  auto* content = new QWidget(this);
  column_ = new QVBoxLayout(content);
  column_->setContentsMargins(0, 0, 0, 0);
  column_->setSpacing(0);
  column_->addWidget(ground_, 1);
  setCentralWidget(content);
  setMinimumSize(smallestClient);
  platform::printOnly(*this, *ground_);
  addSurfaces(model);
  ground_->putPanel(geometry::controlPanel);
  addLabels(model);
  addTexts(model);
  addScales(model);
  addTimeStrip(model);
  addButtons(model);
}

void MainWindowView::put(QWidget* widget, const Rect& rect, const platform::Help& text) {
  ground_->put(widget, rect);
  explain(*widget, text);
}

void MainWindowView::addSurfaces(MainWindow& model) {
  const auto add = [this](platform::Surface& surface, const Rect& rect, const platform::Help& text) {
    put(new SurfaceView(surface, ground_), rect, text);
  };
  add(model.firstTrace, geometry::firstTrace, help::firstTrace);
  add(model.secondTrace, geometry::secondTrace, help::secondTrace);
  add(model.messagePanel, geometry::messagePanel, help::messagePanel);
  add(model.coherenceGraph, geometry::coherenceGraph, help::coherenceGraph);
  add(model.leftSpectrum, geometry::leftSpectrum, help::leftSpectrum);
  add(model.rightSpectrum, geometry::rightSpectrum, help::rightSpectrum);
  add(model.frequencyAxis, geometry::frequencyAxis, help::frequencyAxis);
  add(model.leftRuler, geometry::leftRuler, help::ruler);
  add(model.rightRuler, geometry::rightRuler, help::ruler);
  add(model.firstNumbers, geometry::firstNumbers, help::firstNumbers);
  add(model.secondNumbers, geometry::secondNumbers, help::secondNumbers);
  auto* head = new HeadPicture(ground_);
  tie(model.startPicture, *head);
  put(head, geometry::startPicture, help::startPicture);
}

void MainWindowView::addTexts(MainWindow& model) {
  put(makeView(model.fileNameBox, ground_), geometry::fileNameBox, help::fileNameBox);
  put(makeView(model.subjectBox, ground_), geometry::subjectBox, help::subjectBox);
  put(makeView(model.noteBox, ground_), geometry::noteBox, help::noteBox);
  put(makeView(model.ocularCheck, ground_), geometry::ocularCheck, help::ocularCheck);
}

void MainWindowView::addScales(MainWindow& model) {
  const auto add = [this](platform::Range& range, const Rect& rect, const platform::Help& text) {
    auto* bar = new QScrollBar(Qt::Horizontal, ground_);
    tie(range, *bar);
    put(bar, rect, text);
  };
  add(model.HScroll1, geometry::amplitudeBar, help::amplitudeBar);
  add(model.HScroll2, geometry::speedBar, help::speedBar);
}

void MainWindowView::addTimeStrip(MainWindow& model) {
  constexpr platform::PointerSurfaceView::Steps blockAndMinute{3, 60};
  const auto describe = [](int second) {
    return QString("Secondo %1, blocco %2").arg(second).arg(std::max(1, second / blockAndMinute.small));
  };
  put(new platform::PointerSurfaceView(model.Picture6, model.stripPointer, blockAndMinute, describe, ground_),
      geometry::timeStrip, help::timeStrip);
  auto* slider = new BlockSlider(Qt::Horizontal, ground_);
  tie(model.Slider1, *slider);
  put(slider, geometry::slider, help::slider);
}

void MainWindowView::addButtons(MainWindow& model) {
  const std::vector<std::pair<platform::Button*, platform::Help>> row = {
      {&model.Starts1, help::startButton},   {&model.Stopd1, help::stopButton},
      {&model.Registra, help::recordButton}, {&model.Annotax, help::noteButton},
      {&model.Canali, help::pairButton},     {&model.Artefact, help::artefactButton},
      {&model.Openx, help::openButton},      {&model.Displayx, help::replayButton},
      {&model.Analisi, help::reportButton},  {&model.Stampa, help::printButton},
      {&model.Endx1, help::endButton}};
  constexpr const Rect& plan = geometry::buttonRow;
  constexpr int gap = 8;
  const int width = (plan.width + gap) / static_cast<int>(row.size()) - gap;
  int x = plan.x;
  for (const auto& [button, text] : row) {
    put(new ButtonView(*button, ground_), {x, plan.y, width, plan.height}, text);
    x += width + gap;
  }
}

void MainWindowView::addLabels(MainWindow& model) {
  const auto add = [this](platform::Label& label, const Rect& rect, const platform::Help& text) {
    put(new LabelView(label, ground_), rect, text);
  };
  put(new LabelView(model.statusLabel, ground_, LabelView::Lines::broken), geometry::statusLabel, help::statusLabel);
  add(model.fileNameCaption, geometry::fileNameCaption, help::fileNameCaption);
  add(model.subjectCaption, geometry::subjectCaption, help::subjectCaption);
  add(model.dateLabel, geometry::dateLabel, help::dateLabel);
  add(model.timeLabel, geometry::timeLabel, help::timeLabel);
  add(model.blockLabel, geometry::blockLabel, help::blockLabel);
  add(model.zLabel, geometry::zLabel, help::zLabel);
  add(model.replayPositionLabel, geometry::replayPositionLabel, help::replayPositionLabel);
  add(model.amplitudeLabel, geometry::amplitudeLabel, help::amplitudeLabel);
  add(model.speedLabel, geometry::speedLabel, help::speedLabel);
}

void MainWindowView::addBelow(QWidget* bar) { column_->addWidget(bar); }

void MainWindowView::showFitting(const std::optional<guidance::WindowPlace>& remembered) {
  const int below = column_->sizeHint().height() - std::max(ground_->sizeHint().height(), 0);
  showWhereItWas(*this, remembered, {geometry::width, geometry::height + below});
}

void MainWindowView::closeEvent(QCloseEvent* event) { event->setAccepted(mayClose_()); }

}  // namespace korvinel
