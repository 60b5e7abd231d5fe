#include "app/ground_captions.h"

#include <QHBoxLayout>

#include "display/window_geometry.h"
#include "platform/qt/qt_text.h"

namespace korvinel {
namespace {

namespace plan = geometry;

constexpr double traceUnits = 258, stripUnits = 200;
constexpr int stripMargin = 7;  // half a number above the strip and below it

// On the ground between the surfaces
constexpr platform::Rect leftSpectrumName{527, 252, 17, 24}, rightSpectrumName{545, 252, 17, 24};
constexpr platform::Rect coherenceName{826, 265, 44, 16};
constexpr platform::Rect firstNumbersName{868, 10, 14, 18}, secondNumbersName{868, 133, 14, 18};
constexpr platform::Rect titleRow{62, 540, 640, 14};  ///< above the strip

constexpr auto traceHelp =
    "Sito del tracciato e scala in microvolt. La scala è quella dello strumento, prima della calibrazione: "
    "un'unità del segnale vale un microvolt. I fattori di calibrazione riguardano le singole frequenze, cioè gli "
    "spettri e i valori numerici.";
constexpr auto siteHelp = "Il sito a cui si riferisce il grafico accanto.";
constexpr auto stripHelp =
    "Sincronia: la somiglianza fra i segnali dei due siti, blocco per blocco, in percento. 100: uguali; 0: nessuna "
    "relazione; -100: opposti.";
constexpr auto examinationHelp =
    "Di chi e di quale file sono i grafici. In giallo quando nelle caselle è scritto un altro nome.";

}  // namespace

GroundCaptions::GroundCaptions(platform::PlanGround& ground)
    : ground_(ground),
      firstTrace_(traceScale(plan::firstTrace, "Sito e scala del tracciato 1")),
      secondTrace_(traceScale(plan::secondTrace, "Sito e scala del tracciato 2")) {
  addNames();
  addStrip();
}

GroundScale* GroundCaptions::traceScale(const platform::Rect& trace, const QString& role) {
  auto* scale = new GroundScale(&ground_, guidance::traceScale, {traceUnits, static_cast<double>(trace.height), 0},
                                role, traceHelp);
  ground_.put(scale, {trace.right() + 1, trace.y, plan::leftSpectrum.x - trace.right() - 1, trace.height});
  return scale;
}

GroundCaption* GroundCaptions::caption(const platform::Rect& place, const QString& role, const QString& help,
                                       GroundCaption::Look look) {
  auto* caption = new GroundCaption(&ground_, role, help, look);
  ground_.put(caption, place);
  return caption;
}

void GroundCaptions::addNames() {
  constexpr double letters = 12;
  const GroundCaption::Look centred{letters, true, Qt::AlignCenter};
  leftSpectrum_ = caption(leftSpectrumName, "Sito dello spettro sinistro", siteHelp, centred);
  rightSpectrum_ = caption(rightSpectrumName, "Sito dello spettro destro", siteHelp, centred);
  coherence_ = caption(coherenceName, "Siti della coerenza", siteHelp, {letters, false});
  const GroundCaption::Look top{11, true, Qt::AlignHCenter | Qt::AlignTop};
  firstNumbers_ = caption(firstNumbersName, "Sito dei valori numerici 1", siteHelp, top);
  secondNumbers_ = caption(secondNumbersName, "Sito dei valori numerici 2", siteHelp, top);
}

void GroundCaptions::addStrip() {
  constexpr double letters = 12;
  auto* row = new QWidget(&ground_);
  ground_.put(row, titleRow);
  strip_ = new GroundCaption(row, "Titolo della striscia del tempo", stripHelp, {letters, true});
  examination_ =
      new GroundCaption(row, "Esame mostrato", examinationHelp, {letters, false, Qt::AlignRight | Qt::AlignVCenter});
  auto* inRow = new QHBoxLayout(row);
  inRow->setContentsMargins(0, 0, 0, 0);
  inRow->addWidget(strip_, 1);
  inRow->addWidget(examination_, 2);
  const platform::Rect& strip = plan::timeStrip;
  auto* scale =
      new GroundScale(&ground_, guidance::stripScale, {stripUnits, static_cast<double>(strip.height), stripMargin},
                      "Scala della sincronia", stripHelp);
  ground_.put(scale, {strip.right() + 1, strip.y - stripMargin, plan::controlPanel.x - strip.right() - 2,
                      strip.height + 2 * stripMargin});
}

void GroundCaptions::show(const guidance::Captions& captions) {
  using platform::toQt;
  firstTrace_->showSite(toQt(captions.firstTrace));
  secondTrace_->showSite(toQt(captions.secondTrace));
  leftSpectrum_->show(toQt(captions.leftSpectrum));
  rightSpectrum_->show(toQt(captions.rightSpectrum));
  coherence_->show(toQt(captions.coherence));
  firstNumbers_->show(toQt(captions.firstNumbers));
  secondNumbers_->show(toQt(captions.secondNumbers));
  strip_->show(toQt(captions.strip));
  const QString whose = toQt(captions.examination);
  examination_->show(captions.namesDiffer ? "I grafici sono di " + whose : whose, captions.namesDiffer);
}

}  // namespace korvinel
