#include "app/report_window_view.h"

#include <gmock/gmock.h>

#include "unit/app/shown_windows.h"

namespace korvinel {
namespace {

using testing::ElementsAre;

TEST(Keyboard, TabGoesThroughTheReportFromTheChoicesToTheButtons) {
  ShownWindows windows;
  EXPECT_THAT(names(tabChain(windows.reportView)),
              ElementsAre("Valori massimi", "Valori medi", "Scala del rapporto in microvolt", "Chiudi il rapporto",
                          "Riscrivi i valori delle bande", "Stampa il rapporto", "Spiega la curva del rumore",
                          "Commenti sui segnali"));
}

TEST(Keyboard, EnterAndSpacePressTheButtonThatHasTheKeyboard) {
  ShownWindows windows;
  int presses = 0;
  windows.reportModel.explainButton.onPressed = [&] { ++presses; };
  auto* button = windows.reportView.findChild<QWidget*>("Spiega la curva del rumore");
  QTest::keyClick(button, Qt::Key_Return);
  QTest::keyClick(button, Qt::Key_Space);
  EXPECT_EQ(presses, 2);
}

}  // namespace
}  // namespace korvinel
