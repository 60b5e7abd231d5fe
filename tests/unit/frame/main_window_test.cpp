#include "frame/main_window.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

namespace korvinel {
namespace {

using platform::Colour;
using platform::Surface;

TEST(MainWindow, AScreenReaderSaysWhatEachControlIsFor) {
  const MainWindow w;
  const std::pair<const platform::Control*, const char*> names[] = {{&w.Starts1, "Avvia l'acquisizione"},
                                                                    {&w.Stopd1, "Ferma"},
                                                                    {&w.Registra, "Registra l'esame"},
                                                                    {&w.Annotax, "Nuova nota"},
                                                                    {&w.Canali, "Cambia coppia di canali"},
                                                                    {&w.Artefact, "Soglia degli artefatti"},
                                                                    {&w.Openx, "Apri una registrazione"},
                                                                    {&w.Displayx, "Rivedi la registrazione"},
                                                                    {&w.Analisi, "Analisi finale"},
                                                                    {&w.Stampa, "Stampa l'immagine"},
                                                                    {&w.Endx1, "Fine del programma"},
                                                                    {&w.fileNameBox, "Nome del file"},
                                                                    {&w.subjectBox, "Nome del soggetto"},
                                                                    {&w.noteBox, "Nota"},
                                                                    {&w.ocularCheck, "Rimozione artefatti oculari"},
                                                                    {&w.statusLabel, "Stato della registrazione"},
                                                                    {&w.fileNameCaption, "Etichetta nome del file"},
                                                                    {&w.subjectCaption, "Etichetta soggetto"},
                                                                    {&w.dateLabel, "Data"},
                                                                    {&w.timeLabel, "Tempo"},
                                                                    {&w.blockLabel, "Blocco e durata totale"},
                                                                    {&w.zLabel, "Intervallo e disturbo a 50 Hz"},
                                                                    {&w.replayPositionLabel, "Posizione della lettura"},
                                                                    {&w.amplitudeLabel, "Scala in microvolt"},
                                                                    {&w.speedLabel, "Velocita' del display"},
                                                                    {&w.HScroll1, "Scala in microvolt"},
                                                                    {&w.HScroll2, "Velocita' del display"},
                                                                    {&w.Slider1, "Blocco iniziale"},
                                                                    {&w.startPicture, "Posizione degli elettrodi"}};
  for (const auto& [control, name] : names) EXPECT_EQ(control->name(), name);
}

TEST(MainWindow, TheScalesHaveTheirRangesAndStartValues) {
  const MainWindow window;
  const auto numbers = [](const platform::Range& range) {
    return std::tuple(range.first(), range.last(), range.value());
  };
  EXPECT_EQ(numbers(window.HScroll1), std::tuple(10, 200, 60));
  EXPECT_EQ(numbers(window.HScroll2), std::tuple(1, 20, 6));
  EXPECT_EQ(numbers(window.Slider1), std::tuple(0, 200, 0));
}

struct Panel {
  const Surface& surface;
  const char* name;
  double width, height, lineHeight;
  Colour background;
};

TEST(MainWindow, EachSurfaceHasItsNameItsUnitsAndItsBackground) {
  const MainWindow w;
  const Panel panels[] = {{w.firstTrace, "Tracciato 1", 258, 258, 30, Colour::darkGrey},
                          {w.secondTrace, "Tracciato 2", 258, 258, 30, Colour::darkGrey},
                          {w.messagePanel, "Messaggi", 120, 258, 13.5, Colour::white},
                          {w.coherenceGraph, "Coerenza", 200, 258, 15, Colour::white},
                          {w.leftSpectrum, "Spettro sinistro", 260, 260, 15, Colour::white},
                          {w.rightSpectrum, "Spettro destro", 260, 260, 15, Colour::white},
                          {w.frequencyAxis, "Asse frequenze", 10, 60, 3.4, Colour::white},
                          {w.leftRuler, "Righello sinistro", 260, 30, 16, Colour::white},
                          {w.rightRuler, "Righello destro", 260, 30, 16, Colour::white},
                          {w.firstNumbers, "Valori numerici 1", 100, 95, 11.5, Colour::white},
                          {w.secondNumbers, "Valori numerici 2", 100, 95, 11.5, Colour::white},
                          {w.Picture6, "Striscia del tempo", 600, 200, 32, Colour::white},
                          {w.axisCaptions, "Didascalie degli assi", 1024, 730, 14, Colour::graphArea}};
  for (const Panel& panel : panels) {
    EXPECT_EQ(panel.surface.name(), panel.name);
    EXPECT_EQ(panel.surface.width(), panel.width) << panel.name;
    EXPECT_EQ(panel.surface.height(), panel.height) << panel.name;
    EXPECT_EQ(panel.surface.lineHeight(), panel.lineHeight) << panel.name;
    EXPECT_EQ(panel.surface.background(), panel.background) << panel.name;
  }
}

TEST(MainWindow, TheNoteBoxIsClosedUntilANoteIsBegun) {
  MainWindow window;
  EXPECT_TRUE(window.fileNameBox.enabled());
  EXPECT_TRUE(window.subjectBox.enabled());
  EXPECT_FALSE(window.noteBox.enabled());
}

TEST(MainWindow, TheBoxOfTheFileNameTakesNoCharacterThatAFileNameCannotHave) {
  MainWindow window;
  window.noteBox.setEnabled(true);
  for (platform::TextBox* box : {&window.fileNameBox, &window.subjectBox, &window.noteBox}) box->type("a/b");
  EXPECT_EQ(window.fileNameBox.text(), "ab");
  EXPECT_EQ(window.subjectBox.text(), "a/b");
  EXPECT_EQ(window.noteBox.text(), "a/b");
}

TEST(MainWindow, OnlyOnTheTimeStripDoBoxesLieBelow) {
  const MainWindow window;
  EXPECT_TRUE(window.Picture6.boxesLieBelow());
  EXPECT_FALSE(window.firstTrace.boxesLieBelow());
}

}  // namespace
}  // namespace korvinel
