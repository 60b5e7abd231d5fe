#include "platform/buffered_line.h"

#include <utility>

namespace korvinel::platform {

int BufferedLine::waiting() {
  look();
  return received_.waiting();
}

void BufferedLine::discardInput() {
  look();
  // The system would drop an unknown number of bytes, but every byte of a stream must be counted.
  if (!framed_) dropFromSystem();
  received_.discard();
}

std::string BufferedLine::read() {
  look();
  return received_.read();
}

void BufferedLine::expectFrames(int bytesPerFrame, bool lineIsSilent) {
  look();
  if (!lineIsSilent && framed_) return;
  received_.expectFrames(bytesPerFrame);
  framed_ = bytesPerFrame > 1;
  leftUnfinished_ = false;
  watch_.endDoubt();
  if (!lineIsSilent) watch_.suspect("la linea non tace prima dell'inizio");
}

void BufferedLine::keep(std::string_view bytes) {
  arrivedInLook_ += bytes.size();
  received_.keep(bytes);
}

void BufferedLine::beginAnew() {
  received_.clear();
  framed_ = leftUnfinished_ = false;
  watch_.begin(seconds());
}

void BufferedLine::look() {
  takeFromSystem();
  watch_.looked(seconds(), std::exchange(arrivedInLook_, 0));
  // A frame that stays unfinished: a byte was lost, or the instrument has cut it.
  if (received_.hasUnfinishedFrame() && watch_.silentFor() >= LineWatch::silence) {
    watch_.suspect("un gruppo di campioni è rimasto incompleto");
    received_.dropUnfinished();
    leftUnfinished_ = true;
  }
}

}  // namespace korvinel::platform
