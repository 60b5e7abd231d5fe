#pragma once

#include "platform/posix/file_descriptor.h"

namespace korvinel::platform {

/// During its lifetime, the signals that request the program's end (SIGTERM, SIGHUP, SIGINT) arrive as bytes on a pipe,
/// to be handled between two events. A signal ignored at the program's start stays ignored, as under nohup. A reached
/// file-size limit and a closed terminal become faults of the write. One object at a time.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  /// Becomes and stays readable when a signal has arrived; -1 on a system without signals.
  [[nodiscard]] int descriptor() const { return reading_.get(); }
  /// Ends the process in two seconds, whatever it is doing then. To be called only when everything is saved.
  static void endSoon();

 private:
  FileDescriptor reading_, writing_;
};

}  // namespace korvinel::platform
