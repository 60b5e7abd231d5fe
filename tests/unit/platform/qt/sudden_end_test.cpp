#include "platform/qt/sudden_end.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <csignal>
#include <cstdlib>

#include "platform/posix/end_signals.h"

namespace korvinel::platform {
namespace {

TEST(SuddenEndOfTheWindow, ASignalIsTakenUpOnceWhileABoxIsOpen) {
  const EndSignals endSignals;
  int taken = 0;
  QMessageBox box;
  const SuddenEnd end(endSignals.descriptor(), {[&] {
                                                  ++taken;
                                                  QTimer::singleShot(0, &box, &QDialog::reject);
                                                },
                                                [] {}, [] {}});
  QTimer::singleShot(0, [] {
    raise(SIGTERM);
    raise(SIGHUP);
    raise(SIGINT);
  });
  box.exec();
  QApplication::processEvents();
  EXPECT_EQ(taken, 1);
}

TEST(SuddenEndOfTheWindow, ASessionThatAsksToQuitIsOne) {
  int ended = 0;
  const SuddenEnd end(-1, {[] {}, [&] { ++ended; }, [] {}});
  QEvent quit(QEvent::Quit);
  quit.ignore();
  QObject receiver;
  QApplication::sendEvent(&receiver, &quit);
  EXPECT_EQ(ended, 0);
  QTimer::singleShot(0, [] { QCoreApplication::quit(); });
  QApplication::exec();
  EXPECT_GE(ended, 1);
}

TEST(SuddenEndOfTheWindow, AnExitOfTheToolkitsIsTheDisplaysEnd) {
  EXPECT_EXIT(
      {
        const SuddenEnd end(-1, {[] {}, [] {}, [] { static_cast<void>(write(STDERR_FILENO, "home", 4)); }});
        std::exit(0);
      },
      testing::ExitedWithCode(EXIT_FAILURE), "home");
}

}  // namespace
}  // namespace korvinel::platform
