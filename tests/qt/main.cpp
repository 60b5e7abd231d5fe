#include <gmock/gmock.h>

#include <QApplication>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("CUPS_SERVER", "/nowhere");  // no test may print on somebody's printer
  testing::InitGoogleMock(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setStyle("fusion");
  return RUN_ALL_TESTS();
}
