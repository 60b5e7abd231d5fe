#include "app/main_window_view.h"

#include <QCloseEvent>
#include <QScrollBar>
#include <QSlider>

#include "app/head_picture.h"
#include "platform/qt/control_views.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/surface_view.h"

namespace korvinel {
namespace {

using geometry::Rect;
using platform::ButtonView;
using platform::LabelView;
using platform::SurfaceView;

constexpr QSize smallestClient(900, 600);
constexpr double letterHeight = 13;  // of the plan

}  // namespace

MainWindowView::MainWindowView(MainWindow& model, std::function<bool()> mayClose) : mayClose_(std::move(mayClose)) {
  setWindowTitle("Korvinel - EEG Analysis 4 channels  V 8.1  ita");
  setPalette(platform::panelColours());
  ground_ = new platform::PlanGround(model.axisCaptions, letterHeight);
  setCentralWidget(ground_);
  setMinimumSize(smallestClient);
  addSurfaces(model);
  addPanel(model);
  addButtons(model);
}

void MainWindowView::addSurfaces(MainWindow& model) {
  const auto add = [this](platform::Surface& surface, const Rect& rect) {
    auto* view = new SurfaceView(surface, ground_);
    put(view, rect);
    return view;
  };
  add(model.firstTrace, geometry::firstTrace);
  add(model.secondTrace, geometry::secondTrace);
  add(model.messagePanel, geometry::messagePanel);
  add(model.coherenceGraph, geometry::coherenceGraph);
  add(model.leftSpectrum, geometry::leftSpectrum);
  add(model.rightSpectrum, geometry::rightSpectrum);
  add(model.frequencyAxis, geometry::frequencyAxis);
  add(model.leftRuler, geometry::leftRuler);
  add(model.rightRuler, geometry::rightRuler);
  add(model.firstNumbers, geometry::firstNumbers);
  add(model.secondNumbers, geometry::secondNumbers);
  add(model.Picture6, geometry::timeStrip)->follow(model.stripPointer);
  auto* head = new HeadPicture(ground_);
  tie(model.startPicture, *head);
  put(head, geometry::startPicture);
}

void MainWindowView::addPanel(MainWindow& model) {
  ground_->putPanel(geometry::controlPanel);
  put(makeView(model.fileNameBox, ground_), geometry::fileNameBox);
  put(makeView(model.subjectBox, ground_), geometry::subjectBox);
  put(makeView(model.noteBox, ground_), geometry::noteBox);
  put(makeView(model.ocularCheck, ground_), geometry::ocularCheck);
  const auto label = [this](platform::Label& text, const Rect& rect) { put(new LabelView(text, ground_), rect); };
  label(model.statusLabel, geometry::statusLabel);
  label(model.fileNameCaption, geometry::fileNameCaption);
  label(model.subjectCaption, geometry::subjectCaption);
  label(model.dateLabel, geometry::dateLabel);
  label(model.timeLabel, geometry::timeLabel);
  label(model.blockLabel, geometry::blockLabel);
  label(model.zLabel, geometry::zLabel);
  label(model.replayPositionLabel, geometry::replayPositionLabel);
  label(model.amplitudeLabel, geometry::amplitudeLabel);
  label(model.speedLabel, geometry::speedLabel);
  const auto scale = [this](platform::Range& range, QAbstractSlider* slider, const Rect& rect) {
    tie(range, *slider);
    put(slider, rect);
  };
  scale(model.HScroll1, new QScrollBar(Qt::Horizontal, ground_), geometry::amplitudeBar);
  scale(model.HScroll2, new QScrollBar(Qt::Horizontal, ground_), geometry::speedBar);
  scale(model.Slider1, new QSlider(Qt::Horizontal, ground_), geometry::slider);
}

void MainWindowView::addButtons(MainWindow& model) {
  const std::vector<platform::Button*> row = {&model.Starts1, &model.Stopd1,   &model.Registra, &model.Annotax,
                                              &model.Canali,  &model.Artefact, &model.Openx,    &model.Displayx,
                                              &model.Analisi, &model.Stampa,   &model.Endx1};
  constexpr const Rect& plan = geometry::buttonRow;
  constexpr int gap = 8;
  const int width = (plan.width + gap) / static_cast<int>(row.size()) - gap;
  int x = plan.x;
  for (platform::Button* button : row) {
    put(new ButtonView(*button, ground_), {x, plan.y, width, plan.height});
    x += width + gap;
  }
}

void MainWindowView::showFitting() { platform::showFitting(*this, {geometry::width, geometry::height}); }

void MainWindowView::closeEvent(QCloseEvent* event) { event->setAccepted(mayClose_()); }

}  // namespace korvinel
