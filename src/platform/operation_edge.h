#pragma once

#include <exception>
#include <functional>
#include <utility>

#include "platform/program_end.h"

namespace korvinel::platform {

/// Runs the operation of an event: a fault ends that operation only, ProgramEnd ends the program.
class OperationEdge {
 public:
  std::function<void(const std::exception& fault)> onFault;  ///< called with every fault
  std::function<void()> beforeEnd;   ///< called once, when the program ends: saves what is unsaved
  std::function<void()> onEnd;       ///< called once after it
  std::function<void()> afterwards;  ///< called after every operation; must not throw

  [[nodiscard]] bool ended() const { return ended_; }

  template <typename Operation>
  void run(Operation&& operation) {
    if (ended_) return;
    try {
      std::forward<Operation>(operation)();
    } catch (const ProgramEnd&) {
      end();
    } catch (const std::exception& fault) {
      if (onFault) onFault(fault);
    }
    if (afterwards) afterwards();
  }

  /// To be called when dispatching events: stops an operation still under way once the program has ended.
  void stopIfEnded() const {
    if (ended_) throw ProgramEnd{};
  }

 private:
  void end() {
    if (ended_) return;
    ended_ = true;
    if (beforeEnd) beforeEnd();
    if (onEnd) onEnd();
  }

  bool ended_ = false;
};

}  // namespace korvinel::platform
