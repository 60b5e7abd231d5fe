#pragma once

#include "platform/controls.h"
#include "platform/surface.h"

namespace korvinel {

/// The controls and drawing surfaces of the main window, as models. Names in Italian are for screen readers.
struct MainWindow {
  MainWindow() { Picture6.keepBoxesBelow(); }  // the interval's bar lies behind the trend and the notes' marks

  // The row of buttons. Capitals: the widgets' own names, NOLINTBEGIN(readability-identifier-naming)
  platform::Button Starts1{"Avvia l'acquisizione"};
  platform::Button Stopd1{"Ferma"};
  platform::Button Registra{"Registra l'esame"};
  platform::Button Annotax{"Nuova nota"};
  platform::Button Canali{"Cambia coppia di canali"};
  platform::Button Artefact{"Soglia degli artefatti"};
  platform::Button Openx{"Apri una registrazione"};
  platform::Button Displayx{"Rivedi la registrazione"};
  platform::Button Analisi{"Analisi finale"};
  platform::Button Stampa{"Stampa l'immagine"};
  platform::Button Endx1{"Fine del programma"};

  // Texts and options
  platform::TextBox fileNameBox{"Nome del file", EntryKind::fileName};
  platform::TextBox subjectBox{"Nome del soggetto", EntryKind::text};
  platform::TextBox noteBox{"Nota", EntryKind::text, false};
  platform::CheckBox ocularCheck{"Rimozione artefatti oculari"};  ///< ticked: blocks are screened for eye artefacts

  // Labels
  platform::Label statusLabel{"Stato della registrazione"};
  platform::Label fileNameCaption{"Etichetta nome del file"};
  platform::Label subjectCaption{"Etichetta soggetto"};
  platform::Label dateLabel{"Data"};
  platform::Label timeLabel{"Tempo"};
  platform::Label blockLabel{"Blocco e durata totale"};  ///< version tag, running block, total time
  platform::Label zLabel{"Intervallo e disturbo a 50 Hz"};
  platform::Label replayPositionLabel{"Posizione della lettura"};
  platform::Label amplitudeLabel{"Scala in microvolt"};
  platform::Label speedLabel{"Velocita' del display"};

  // Scales: HScroll1 the amplitude in microvolts, HScroll2 the replay speed, Slider1 a block number
  platform::Range HScroll1{"Scala in microvolt", 10, 200, 60};
  platform::Range HScroll2{"Velocita' del display", 1, 20, 6};
  platform::Range Slider1{"Blocco iniziale", 0, 200, 0};

  // Surfaces in user units: width, height, height of a text line
  platform::Surface firstTrace{"Tracciato 1", 258, 258, 30, platform::Colour::darkGrey};
  platform::Surface secondTrace{"Tracciato 2", 258, 258, 30, platform::Colour::darkGrey};
  platform::Surface messagePanel{"Messaggi", 120, 258, 13.5};
  platform::Surface coherenceGraph{"Coerenza", 200, 258, 15};
  platform::Surface leftSpectrum{"Spettro sinistro", 260, 260, 15};
  platform::Surface rightSpectrum{"Spettro destro", 260, 260, 15};
  platform::Surface frequencyAxis{"Asse frequenze", 10, 60, 3.4};
  platform::Surface leftRuler{"Righello sinistro", 260, 30, 16};
  platform::Surface rightRuler{"Righello destro", 260, 30, 16};
  platform::Surface firstNumbers{"Valori numerici 1", 100, 95, 11.5};
  platform::Surface secondNumbers{"Valori numerici 2", 100, 95, 11.5};
  platform::Surface Picture6{"Striscia del tempo", 600, 200, 32};  ///< 3 units per block
  platform::PointerEvents stripPointer;                            ///< the mouse on the time strip
  // NOLINTEND(readability-identifier-naming)
  /// Axis captions on the window itself: the background under the other surfaces, in the units of the window's
  /// geometry.
  platform::Surface axisCaptions{"Didascalie degli assi", 1024, 730, 14, platform::Colour::graphArea};

  platform::Picture startPicture{"Posizione degli elettrodi"};  ///< shown until the first examination
};

}  // namespace korvinel
