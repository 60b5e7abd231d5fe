#include <cmath>

#include "eeg/block.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/waiting.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/serial_port.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

using platform::Colour;

bool leavesBand(const Bounded<float, 258>& samples, int sampleCount, int threshold) {
  for (int s = 1; s <= sampleCount; ++s)
    if (samples[s] > static_cast<float>(eeg::midLevel + threshold) ||
        samples[s] < static_cast<float>(eeg::midLevel - threshold))
      return true;
  return false;
}

/// Uneven limits: 0 (nothing typed) becomes 90, and 129 becomes 130.
Int16 thresholdFrom(const std::string& answer) {
  const Int16 number = Int16::nearest(leadingNumber(answer));
  if (number == 0) return 90;
  if (number < 70) return 70;
  if (number > 128) return 130;
  return number;
}

}  // namespace

void MainState::checkArtefacts() {
  artefactFlag = 0;
  for (int channel = 1; channel <= 4; ++channel)
    if (leavesBand(sampleBlock[channel], samplesPerBlock, artefactThreshold)) artefactFlag = 1;
}

void MainState::rejectBlock() {
  blocksRejected += 1;
  // Not `channelPair`: rejected blocks are always shown for the pair selected at the start of the acquisition, the
  // first.
  const int firstChannel = sharedSelector == 1 ? 1 : sharedSelector == 2 ? 3 : 0;
  const int secondChannel = firstChannel == 0 ? 0 : firstChannel + 1;
  window.firstTrace.clear();
  drawTrace(window.firstTrace, firstChannel, Colour::blue);
  window.secondTrace.clear();
  drawTrace(window.secondTrace, secondChannel, Colour::blue);
  window.firstTrace.printAt(1, 1, Colour::white, "Artefatto!");
  tracesPair = firstChannel == 0 ? 0 : static_cast<int>(sharedSelector);
  waitAtLeast(*this, 0.05);
  sendStartCommand();
  host.tickTimer.setEnabled(true);
}

void MainState::editArtefactThreshold() {
  headerText1 = "Funzione attiva solo se si esclude";
  headerText2 = "la rimozione automatica artefatti";
  if (window.ocularCheck.checked()) return host.dialogs.notice(headerText1 + "\r" + headerText2);
  messageText1 = "Modifica soglia degli artefatti: valore attuale=" + signedText(artefactThreshold) + "\r";
  messageText2 = "Introdurre il nuovo valore (minimo=70 massimo=130)\r";
  messageText3 = "Valore minimo= sono accettati solo dati buoni\r";
  messageText4 = "ma molti dati possono essere scartati.\r";
  messageText5 = "Valore max= sono accettati dati buoni e cattivi. Rischio!";
  messageText1 += messageText2 + messageText3 + messageText4 + messageText5;
  headerText1 = host.dialogs.input(messageText1, "Artefacts", {200, 400});
  artefactThreshold = thresholdFrom(headerText1);
}

}  // namespace korvinel
