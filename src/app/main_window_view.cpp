#include "app/main_window_view.h"

#include <QCloseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QSlider>
#include <algorithm>
#include <cmath>

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

/// A calm light panel in every desktop theme: the labels' inks are chosen for it.
QPalette panelColours() {
  QPalette palette(QColor(236, 239, 241), QColor(236, 239, 241));
  palette.setColor(QPalette::Highlight, QColor(25, 118, 210));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(226, 230, 232));
  return palette;
}

}  // namespace

MainWindowView::MainWindowView(MainWindow& model, std::function<bool()> mayClose) : mayClose_(std::move(mayClose)) {
  setWindowTitle("Korvinel - EEG Analysis 4 channels  V 8.1  ita");
  setPalette(panelColours());
  ground_ = new SurfaceView(model.axisCaptions);
  setCentralWidget(ground_);
  setMinimumSize(smallestClient);
  addSurfaces(model);
  addPanel(model);
  addButtons(model);
  ground_->installEventFilter(this);
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
  auto* panel = new QWidget(ground_);
  panel->setAutoFillBackground(true);
  put(panel, geometry::controlPanel);
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

bool MainWindowView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ground_ && event->type() == QEvent::Resize) layOut();
  return QMainWindow::eventFilter(watched, event);
}

void MainWindowView::layOut() {
  const double scaleX = static_cast<double>(ground_->width()) / geometry::width;
  const double scaleY = static_cast<double>(ground_->height()) / geometry::height;
  QFont letters = font();
  letters.setPixelSize(std::max(9, static_cast<int>(std::lround(letterHeight * std::min(scaleX, scaleY)))));
  ground_->setFont(letters);
  const auto across = [&](int x) { return static_cast<int>(std::lround(x * scaleX)); };
  const auto down = [&](int y) { return static_cast<int>(std::lround(y * scaleY)); };
  for (const Place& place : places_)
    place.widget->setGeometry(QRect(QPoint(across(place.rect.x), down(place.rect.y)),
                                    QPoint(across(place.rect.right()) - 1, down(place.rect.bottom()) - 1)));
}

void MainWindowView::showFitting() {
  constexpr QSize frame(16, 38);  // what a window manager usually puts around the client area
  const QSize plan(geometry::width, geometry::height);
  const QSize screenSize = screen()->availableSize();
  const QSize needed = plan + frame;
  resize(plan.boundedTo(screenSize));
  if (needed.width() > screenSize.width() || needed.height() > screenSize.height())
    showMaximized();
  else
    show();
}

void MainWindowView::closeEvent(QCloseEvent* event) { event->setAccepted(mayClose_()); }

}  // namespace korvinel
