#pragma once

namespace korvinel::platform {

struct Clock;
struct Dialogs;
struct EventPump;
struct Files;
class IntervalTimer;
struct Machine;
struct ScreenPrinter;
struct SerialPort;
struct CompanionWindows;

/// Everything the program needs of the machine it runs on.
struct Platform {
  Clock& clock;
  EventPump& events;
  IntervalTimer& tickTimer;
  IntervalTimer& pauseTimer;
  Dialogs& dialogs;
  Files& files;
  SerialPort& serialPort;
  Machine& machine;
  ScreenPrinter& screenPrinter;
  CompanionWindows& windows;
};

}  // namespace korvinel::platform
