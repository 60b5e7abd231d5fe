#pragma once

#include "platform/qt/help.h"

/// The tool tips of the main window, and the letters that reach its controls with Alt. Each letter occurs once.
namespace korvinel::main_window_help {

using platform::Help;

// Texts and options
constexpr Help fileNameBox{
    "Nome del file del nuovo esame, senza .QVD, che viene aggiunto. Non accetta virgole, virgolette e i segni vietati "
    "nei nomi dei file. Durante la registrazione non si può cambiare. Quando si apre un file mostra il suo nome.",
    'N'};
constexpr Help subjectBox{
    "Nome della persona esaminata: va nel file e nel rapporto. Non accetta virgole e virgolette. Durante la "
    "registrazione non si può cambiare. Quando si apre un file mostra il nome che contiene.",
    'G'};
constexpr Help noteBox{
    "Testo della nota: si apre con Annota e si conferma con Invio, purché non sia vuoto. Resta nel file solo se la "
    "registrazione è attiva.",
    'O'};
constexpr Help ocularCheck{
    "Sostituisce i campioni che escono di oltre 70 unità dallo zero, come nei battiti delle palpebre, prima che il "
    "blocco venga registrato e analizzato. Finché è attiva, la soglia degli artefatti non si può cambiare.",
    'U'};

// Scales
constexpr Help amplitudeBar{
    "Fondo scala degli spettri, da 10 a 200 microvolt. Con dati in memoria il disegno cambia subito, durante un esame "
    "dal prossimo blocco.",
    'V'};
constexpr Help speedBar{"Velocità con cui Display rivede un file: da 1, in tempo reale, a 20 volte più veloce.", 'L'};
constexpr Help slider{
    "Cursore: il blocco da cui Display comincia. Con 1 comincia dal primo, con un altro valore dal blocco che lo "
    "segue. Con dati in memoria ne mostra subito spettri e valori. Non va oltre l'ultimo blocco; durante un esame "
    "segue i blocchi.",
    'B'};
constexpr Help timeStrip{
    "Sincronia della coppia di canali nel tempo, con le note in rosso. A esame finito o con un file aperto si sceglie "
    "qui l'intervallo del rapporto: trascinare il mouse dal punto iniziale al punto finale. Con la tastiera: frecce, "
    "Pag, Inizio e Fine spostano il segno, Spazio o Invio fissano il punto iniziale e poi il finale.",
    'Z'};

// The row of buttons
constexpr Help startButton{
    "Prova lo strumento, per quattro secondi, e comincia un nuovo esame. Rifiutato se manca il nome del file o del "
    "soggetto, se il file esiste già, o con un file aperto: premere prima Stop. Durante un esame non ha effetto.",
    'S'};
constexpr Help stopButton{
    "Termina l'esame al prossimo blocco: la registrazione attiva viene salvata e compare la durata. Ferma anche la "
    "lettura di un file. Quando nulla è in corso non si vede alcun effetto.",
    'T'};
constexpr Help recordButton{
    "Registra l'esame nel file con il nome scritto sopra: l'esame ricomincia dal primo blocco e il pulsante resta "
    "giallo fino a Stop. Senza effetto fuori da un esame o se la registrazione è già attiva.",
    'R'};
constexpr Help noteButton{
    "Segna il momento sulla striscia del tempo e apre la casella della nota: scrivere il testo e premere Invio. Al "
    "massimo 60 note. Senza effetto con un file aperto.",
    'A'};
constexpr Help pairButton{
    "Mostra l'altra coppia di canali: F1 e F2 oppure T5 e T6. Durante un esame vale dal prossimo blocco, e dopo un "
    "nuovo Start può servire una seconda pressione; con dati in memoria ridisegna subito.",
    'C'};
constexpr Help artefactButton{
    "Chiede la soglia degli artefatti, da 70 a 130: un blocco che esce di più dallo zero viene scartato; 130 li "
    "accetta tutti. Cancel o una risposta vuota valgono 90. Rifiutato con Rimoz. artefatti oculari attiva.",
    'F'};
constexpr Help openButton{
    "Apre una registrazione, la legge per intero e ne mostra il riassunto. Rifiutato durante un esame o mentre un file "
    "viene letto: premere prima Stop.",
    'P'};
constexpr Help replayButton{
    "Rivede il file aperto, dal blocco scelto con il cursore e alla velocità scelta. Rifiutato se nessun file è "
    "aperto, durante un esame o mentre il file viene letto per la prima volta.",
    'D'};
constexpr Help reportButton{
    "Apre il rapporto finale sull'intervallo scelto sulla striscia del tempo, o su tutti i dati. Rifiutato senza dati "
    "in memoria, durante un esame e finché un file non è letto per intero.",
    'I'};
constexpr Help printButton{
    "Dopo una conferma stampa l'immagine di questa finestra e la mette negli appunti; senza stampante la pagina "
    "diventa un file PDF. Se Display è in corso lo ferma, e chiede la conferma due volte.",
    'M'};
constexpr Help endButton{
    "Termina il programma. Durante un esame aspetta il prossimo blocco e salva la registrazione attiva.", 'E'};

// Surfaces
constexpr Help firstTrace{
    "Due secondi del primo canale della coppia: in verde chiaro il segnale dello strumento, in blu quello corretto. Un "
    "blocco scartato è tutto blu, con la parola Artefatto!, e mostra sempre F1."};
constexpr Help secondTrace{
    "Due secondi del secondo canale della coppia: in verde chiaro il segnale dello strumento, in blu quello corretto. "
    "Un blocco scartato è tutto blu e mostra sempre F2."};
constexpr Help messagePanel{"Messaggi del programma e riassunto del file aperto."};
constexpr Help coherenceGraph{
    "Coerenza media della coppia di canali a ogni frequenza, da 0 Hz in basso a 30 Hz in alto: 100 a sinistra, -100 a "
    "destra."};
constexpr Help leftSpectrum{
    "Spettro del primo canale della coppia, da 0 Hz in basso a 30 Hz in alto. Rosso scuro: Delta; rosso: Theta; verde: "
    "Alfa; blu: Beta; viola: oltre."};
constexpr Help rightSpectrum{
    "Spettro del secondo canale della coppia, da 0 Hz in basso a 30 Hz in alto. Rosso scuro: Delta; rosso: Theta; "
    "verde: Alfa; blu: Beta; viola: oltre."};
constexpr Help frequencyAxis{"Frequenze degli spettri, in Hz."};
constexpr Help ruler{"Scala degli spettri: una tacca ogni 10 microvolt, una lunga ogni 50."};
constexpr Help firstNumbers{
    "Massimi delle quattro bande nel blocco mostrato, in microvolt: primo canale della coppia."};
constexpr Help secondNumbers{
    "Massimi delle quattro bande nel blocco mostrato, in microvolt: secondo canale della coppia."};
constexpr Help startPicture{"Posizione degli elettrodi: F1 e F2 sulla fronte, T5 e T6 ai lati, dietro le orecchie."};

// Labels
constexpr Help statusLabel{"Stato della registrazione. Qui si legge anche perché un'operazione è stata interrotta."};
constexpr Help dateLabel{"Data dell'esame; dopo una scelta sulla striscia del tempo, la durata dell'intervallo."};
constexpr Help blockLabel{"Mentre un file viene letto, il numero del blocco; poi la durata totale."};
constexpr Help timeLabel{"Tempo del blocco mostrato: tre secondi per blocco."};
constexpr Help replayPositionLabel{"Numero del blocco scelto con il cursore o mostrato da Display."};
constexpr Help zLabel{
    "Durante un esame il disturbo di rete a 50 Hz di ogni canale: basso, medio o alto. Con un file aperto il primo e "
    "l'ultimo blocco."};
constexpr Help amplitudeLabel{"Fondo scala degli spettri in microvolt."};
constexpr Help speedLabel{"Velocità con cui Display rivede un file."};
constexpr Help fileNameCaption{"Nome del file dell'esame."};
constexpr Help subjectCaption{"Nome della persona esaminata."};

}  // namespace korvinel::main_window_help
