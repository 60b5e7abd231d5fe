#include "instrument/wire.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace korvinel::instrument {

void Wire::put(double due, std::string_view frame) {
  if (wiring_.pace == Pace::wholeFrames) {
    handedOn_.emplace_back(frame);
    return;
  }
  send(due, frame, wiring_.pace == Pace::evenlySpread ? frameSeconds_ / 4 : byteSeconds_);
}

void Wire::putAnswer(double due, std::string_view text) {
  if (wiring_.pace == Pace::wholeFrames) {
    handedOn_.emplace_back(text);
  } else {
    send(due, text, byteSeconds_);
  }
}

void Wire::send(double due, std::string_view bytes, double spacing) {
  double begin = due;
  for (const char code : bytes) {
    free_ = std::max(begin, free_) + byteSeconds_;
    onTheWay_.push_back({free_, code});
    begin += spacing;
  }
}

void Wire::cut(double now) {
  while (!onTheWay_.empty() && onTheWay_.back().arrival > now) onTheWay_.pop_back();
  free_ = std::min(free_, now);
}

void Wire::clear() {
  onTheWay_.clear();
  chunk_.clear();
  handedOn_.clear();
}

void Wire::arrive(const Byte& byte) {
  if (chunk_.empty()) chunkDue_ = byte.arrival + wiring_.latencySeconds * random_.between(0.5, 1);
  chunk_ += byte.code;
  if (static_cast<int>(chunk_.size()) >= wiring_.chunkBytes) handOn();
}

void Wire::handOn() { handedOn_.push_back(std::exchange(chunk_, {})); }

std::vector<std::string> Wire::takeDue(double now) {
  constexpr double never = std::numeric_limits<double>::infinity();
  for (;;) {
    const double arrival = onTheWay_.empty() ? never : onTheWay_.front().arrival;
    const double due = chunk_.empty() ? never : chunkDue_;
    if (std::min(arrival, due) > now) return std::exchange(handedOn_, {});
    if (due <= arrival) {
      handOn();
    } else {
      arrive(onTheWay_.front());
      onTheWay_.pop_front();
    }
  }
}

double Wire::nextDue() const {
  if (!handedOn_.empty()) return 0;
  double next = chunk_.empty() ? std::numeric_limits<double>::infinity() : chunkDue_;
  if (!onTheWay_.empty()) next = std::min(next, onTheWay_.front().arrival);
  return next;
}

}  // namespace korvinel::instrument
