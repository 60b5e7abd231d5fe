#include "app/lamp.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>
#include <QToolTip>

namespace korvinel {
namespace {

using guidance::SignalHistory;
using guidance::SignalState;
using guidance::SiteSignals;

SiteSignals allSites(SignalState state, const std::string& why = "prova") {
  SiteSignals block;
  block.fill({state, std::string(guidance::nameOf(state)) + ": " + why});
  return block;
}

QImage pictureOf(QWidget& widget) { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); }

TEST(Lamp, WaitsUntilThereIsASignal) {
  const Lamp lamp(3, nullptr);
  EXPECT_EQ(lamp.accessibleName(), "T5: in attesa");
  EXPECT_EQ(lamp.toolTip(), "T5, in attesa: nessuna acquisizione in corso");
}

TEST(Lamp, ExplainsItsStateAndWhatCanBeDone) {
  Lamp lamp(1, nullptr);
  SignalHistory history;
  history.add(allSites(SignalState::good), 0);
  history.add(allSites(SignalState::saturated, "31 % dei campioni al limite della scala"), 3);
  lamp.display(history);
  EXPECT_EQ(lamp.accessibleName(), "F1: saturo");
  const QString tip = lamp.toolTip();
  EXPECT_TRUE(
      tip.startsWith("F1, saturo: 31 % dei campioni al limite della scala\n"
                     "nell'ultimo minuto: 1 volta buono, 1 volta saturo\nSistemare di nuovo l'elettrodo "))
      << tip.toStdString();
  EXPECT_EQ(lamp.accessibleDescription(),
            QString(tip).replace("scala\n", "scala. ").replace("saturo\n", "saturo. ").replace('\n', ' '));
}

TEST(Lamp, IsPaintedAgainOnlyAfterABlock) {
  Lamp lamp(1, nullptr);
  SignalHistory history;
  history.add(allSites(SignalState::good), 0);
  lamp.display(history);
  const QImage before = pictureOf(lamp);
  history.add(allSites(SignalState::mains), 3);
  EXPECT_EQ(pictureOf(lamp), before);
  lamp.display(history);
  EXPECT_NE(pictureOf(lamp), before);
}

TEST(Lamp, IsWideEnoughForEveryWord) {
  Lamp lamp(1, nullptr);
  QFont letters = lamp.font();
  letters.setBold(true);
  for (int i = 0; i < guidance::signalStates; ++i) {
    const auto word = guidance::nameOf(static_cast<SignalState>(i));
    const int width =
        QFontMetrics(letters).horizontalAdvance("F1") +
        QFontMetrics(letters).horizontalAdvance(QString::fromUtf8(word.data(), static_cast<int>(word.size())));
    EXPECT_LT(width + QFontMetrics(lamp.font()).ascent() + 20, lamp.sizeHint().width());
  }
}

TEST(Lamp, IsReachedByTabAndExplainsItselfButNotByAClick) {
  Lamp lamp(2, nullptr);
  lamp.show();
  lamp.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&lamp));
  lamp.clearFocus();
  QTest::mouseClick(&lamp, Qt::LeftButton);
  EXPECT_FALSE(lamp.hasFocus());
  lamp.setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(QTest::qWaitFor([&] { return QToolTip::text() == lamp.toolTip(); }));
  lamp.clearFocus();
  EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }));
}

}  // namespace
}  // namespace korvinel
