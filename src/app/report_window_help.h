#pragma once

#include "platform/qt/help.h"

/// The tool tips of the report and of its comments, and the letters that reach their controls with Alt. Each letter
/// occurs once.
namespace korvinel::report_window_help {

using platform::Help;

constexpr Help maximumCheck{
    "Scrive negli spettri il valore massimo di ogni banda, ed esclude i valori medi. Senza alcuna scelta restano gli "
    "ultimi valori scritti, zero all'inizio.",
    'X'};
constexpr Help meanCheck{
    "Scrive negli spettri il valore medio di ogni banda, ed esclude i valori massimi. Senza alcuna scelta restano gli "
    "ultimi valori scritti, zero all'inizio.",
    'D'};
constexpr Help scaleSlider{"Fondo scala verticale degli spettri, da 1 a 200 microvolt.", 'V'};
constexpr Help exitButton{"Chiude il rapporto e i suoi commenti e torna alla finestra principale.", 'U'};
constexpr Help numbersButton{"Riscrive negli spettri i valori delle bande, secondo la scelta fatta.", 'N'};
constexpr Help printButton{
    "Dopo una conferma stampa l'immagine del rapporto e la mette negli appunti; senza stampante la pagina diventa un "
    "file PDF.",
    'S'};
constexpr Help explainButton{"Spiega che cosa è la curva del rumore.", 'P'};
constexpr Help commentButton{
    "Apre i commenti in parole semplici su ritmo Alfa, ansia, simmetria e coerenza. Se sono già aperti li scrive di "
    "nuovo in fondo.",
    'C'};

constexpr Help spectrum{
    "Spettro medio del canale nell'intervallo scelto, da 0 a 32 Hz; una tacca ogni 10 microvolt. Rosso scuro: Delta; "
    "rosso: Theta; verde: Alfa; blu: Beta; viola: oltre 26 Hz."};
constexpr Help coherence{
    "Coerenza media della coppia nell'intervallo scelto, da 0 a 32 Hz: 100 in alto, 0 sulla linea punteggiata, -100 in "
    "basso."};
constexpr Help ground{"Rapporto sull'intervallo scelto: l'intestazione e i giudizi sui segnali."};
constexpr Help scaleLabel{"Fondo scala verticale degli spettri."};
constexpr Help intervalLabel{"Durata dell'intervallo esaminato."};
constexpr Help statusLabel{"Spiega perché un'operazione del rapporto è stata interrotta."};

constexpr Help comments{"Commenti sui segnali. Si scorrono con le frecce e con Pag; Esc chiude la finestra."};

}  // namespace korvinel::report_window_help
