// Measures the real program in its window, from inside: the time that a user waits ends when the last painting caused
// by an action has reached the screen. Prints a line "name value" for each figure, in milliseconds, megabytes or shares
// of a core; `figures.py` runs it several times.
//
//   korvinel-window-figures DATA_FOLDER DATA_FILE IDLE_SECONDS [START_NS]     START_NS: monotonic clock at its start

#include <sys/resource.h>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QFileDialog>
#include <QTimer>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

#include "app/program.h"
#include "platform/qt/appearance.h"

namespace {

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

/// Records the time of the last painting of a window.
class Application : public QApplication {
 public:
  using QApplication::QApplication;
  Clock::time_point lastPainting{};
  bool notify(QObject* receiver, QEvent* event) override {
    const bool painting = event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest;
    const bool done = QApplication::notify(receiver, event);
    if (painting) lastPainting = Clock::now();
    return done;
  }
};

class Figures {
 public:
  Figures(Application& application, std::string file, int idleSeconds, Clock::time_point start)
      : application_(application), file_(std::move(file)), idleSeconds_(idleSeconds), start_(start) {}

  void take() {
    settle();
    print("start_ms", milliseconds(application_.lastPainting - start_));
    print("start_cpu_ms", processorSeconds() * 1000);
    print("start_resident_mb", residentMegabytes());
    print("idle_share", shareWhile([this] { pass(idleSeconds_ * 1000); }));
    openFile();
    print("opened_resident_mb", residentMegabytes());
    print("own_data_mb", static_cast<double>(sizeof(korvinel::Program)) / 1e6);
    print("finished_share", shareWhile([this] { pass(idleSeconds_ * 1000); }));
    openReport();
    replay();
    QCoreApplication::exit(0);
  }

 private:
  static void print(const char* name, double value) {
    std::printf("%s %.4f\n", name, value);
    std::fflush(stdout);
  }

  static void pass(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
  }

  /// Waits until nothing has been painted for a while.
  void settle() {
    constexpr auto quiet = std::chrono::milliseconds(150);
    do pass(50);
    while (Clock::now() - application_.lastPainting < quiet);
  }

  static QAbstractButton& button(const QString& role) {
    for (QWidget* widget : QApplication::allWidgets())
      if (auto* found = qobject_cast<QAbstractButton*>(widget);
          found && found->accessibleDescription().startsWith(role))
        return *found;
    qFatal("there is no button %s", qPrintable(role));
  }

  static double processorSeconds() {
    rusage use{};
    getrusage(RUSAGE_SELF, &use);
    const auto seconds = [](const timeval& time) {
      return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(use.ru_utime) + seconds(use.ru_stime);
  }

  template <typename Act>
  static double shareWhile(Act&& act) {
    const double before = processorSeconds();
    const auto start = Clock::now();
    act();
    return (processorSeconds() - before) / (milliseconds(Clock::now() - start) / 1000);
  }

  static double residentMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
      if (line.starts_with("VmRSS:")) return std::stod(line.substr(6)) * 1024 / 1e6;
    return 0;
  }

  void openFile() {
    Clock::time_point answered{};
    double processorBefore = 0;
    QTimer::singleShot(0, [&] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) qFatal("there is no file dialog");
      dialog->selectFile(QString::fromStdString(file_));
      settle();
      answered = Clock::now();
      processorBefore = processorSeconds();
      QMetaObject::invokeMethod(dialog, "accept");
    });
    button("Apri una registrazione").click();
    const auto returned = Clock::now();
    const double processor = processorSeconds() - processorBefore;
    settle();
    print("open_ms", milliseconds(application_.lastPainting - answered));
    print("open_scan_ms", milliseconds(returned - answered));
    print("open_scan_cpu_ms", processor * 1000);
  }

  void openReport() {
    const auto pressed = Clock::now();
    const double before = processorSeconds();
    button("Analisi finale").click();
    settle();
    print("report_ms", milliseconds(application_.lastPainting - pressed));
    print("report_cpu_ms", (processorSeconds() - before) * 1000);
    print("report_resident_mb", residentMegabytes());
  }

  void replay() {
    for (QWidget* widget : QApplication::allWidgets())
      if (widget->accessibleName() == "Velocita' del display") qobject_cast<QAbstractSlider*>(widget)->setValue(1);
    // The replay runs a loop of its own; a wait inside it would halt the replay.
    double before = 0;
    constexpr int settledMs = 3'500;
    QTimer::singleShot(settledMs, [&] { before = processorSeconds(); });
    QTimer::singleShot(settledMs + idleSeconds_ * 1000, [&] {
      print("replay_share", (processorSeconds() - before) / idleSeconds_);
      button("Ferma").click();
    });
    button("Rivedi la registrazione").click();
  }

  Application& application_;
  std::string file_;
  int idleSeconds_;
  Clock::time_point start_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  const auto start = argc > 4 ? Clock::time_point(std::chrono::nanoseconds(std::stoll(argv[4]))) : Clock::now();
  Application application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  korvinel::platform::applyAppearance();
  const auto program = std::make_unique<korvinel::Program>(argv[1]);
  program->startUp();
  Figures figures(application, argv[2], std::stoi(argv[3]), start);
  QTimer::singleShot(0, [&] { figures.take(); });
  return program->run();
}
