#pragma once

#include "platform/posix/file_descriptor.h"

namespace korvinel::platform {

/// While it lives, the signals that ask the program to end (SIGTERM, SIGHUP, SIGINT) arrive as bytes on a pipe, to be
/// taken up between two events. One that was ignored when the program was started stays so, as under nohup. A full
/// file-size limit and a closed terminal become faults of the write that meets them. There is one object at a time.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  /// Becomes readable when a signal has come, and stays so; -1 on a system without signals.
  [[nodiscard]] int descriptor() const { return reading_.get(); }
  /// Ends the process in two seconds, whatever it is doing then: only when nothing is left to be saved.
  static void endSoon();

 private:
  FileDescriptor reading_, writing_;
};

}  // namespace korvinel::platform
