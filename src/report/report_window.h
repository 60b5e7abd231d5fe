#pragma once

#include "platform/controls.h"
#include "platform/surface.h"

namespace korvinel {

/// The controls and drawing surfaces of the report window, as models. Names in Italian are for screen readers.
struct ReportWindow {
  ReportWindow() {
    commentButton.setCaption("Commenti");
    scaleLabel.setText("Microvolts=30");
    ground.keepTextsInPlace();
  }

  platform::Button exitButton{"Chiudi il rapporto"};
  platform::Button numbersButton{"Riscrivi i valori delle bande"};
  platform::Button printButton{"Stampa il rapporto"};
  platform::Button explainButton{"Spiega la curva del rumore"};
  platform::Button commentButton{"Commenti sui segnali"};
  platform::CheckBox maximumCheck{"Valori massimi"};
  platform::CheckBox meanCheck{"Valori medi"};
  platform::Range scaleSlider{"Scala del rapporto in microvolt", 1, 200, 30};
  platform::Label scaleLabel{"Scala del rapporto"};
  platform::Label intervalLabel{"Durata dell'intervallo"};
  platform::Label statusLabel{"Stato del rapporto"};  ///< empty, or why an operation ended early

  /// Spectra of channels 1..4: two units per index across, 200 down.
  platform::Surface spectrum1{"Spettro F1", 128, 200, 18};
  platform::Surface spectrum2{"Spettro F2", 128, 200, 18};
  platform::Surface spectrum3{"Spettro T5", 128, 200, 18};
  platform::Surface spectrum4{"Spettro T6", 128, 200, 18};
  /// Coherence of pairs 1..4: one unit per index across; 100 at the top, 0 in the middle, -100 at the bottom.
  platform::Surface coherence1{"Coerenza F1-F2", 64, 200, 18};
  platform::Surface coherence2{"Coerenza T5-T6", 64, 200, 18};
  platform::Surface coherence3{"Coerenza F1-T5", 64, 200, 18};
  platform::Surface coherence4{"Coerenza F2-T6", 64, 200, 18};

  /// The window itself: the background under the panels, in the units of the report's geometry. Shows the header, the
  /// verdicts and the frequency labels.
  platform::Surface ground{"Rapporto", 1200, 900, 18, platform::Colour::windowBackground};

  platform::Surface& spectrumOf(int channel);  ///< 1..4; else a RuntimeError (subscript)
  platform::Surface& coherenceOf(int pair);    ///< 1..4; else a RuntimeError (subscript)
};

/// The small window of comments: one surface that grows downward each time the comments are printed.
struct CommentWindow {
  static constexpr int linesOfComment = 18;
  static constexpr int lineHeight = 16;  ///< of letters of 10 points, at 96 dots an inch
  platform::Surface text{"Testo dei commenti", 544, linesOfComment* lineHeight, lineHeight};
};

}  // namespace korvinel
