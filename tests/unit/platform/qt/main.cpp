#include <gmock/gmock.h>

#include <QApplication>

#include "platform/qt/appearance.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("CUPS_SERVER", "/nowhere");  // no test may use a real printer
  testing::InitGoogleMock(&argc, argv);
  const QApplication application(argc, argv);
  korvinel::platform::applyAppearance();
  return RUN_ALL_TESTS();
}
