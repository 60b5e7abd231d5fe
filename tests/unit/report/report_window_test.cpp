#include <gtest/gtest.h>

#include <tuple>

#include "headless_report.h"
#include "report/report_geometry.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;
using platform::Rect;

using Texts = std::vector<std::string>;

struct Printed {
  double x, y;
  Colour colour;
};

const Mark* markOf(const platform::Surface& surface, const std::string& text) {
  for (const Mark& mark : surface.marks())
    if (mark.text == text) return &mark;
  return nullptr;
}

/// The report of ten blocks with an alpha-like spectrum.
struct LoadedReport : HeadlessReport {
  explicit LoadedReport(int first = 1, int last = 10) {
    fillHistories(1, 199);
    openReport(first, last);
  }
};

TEST(OpenReport, WhileAcquiringItAsksToWait) {
  HeadlessReport program;
  program.state.acquisitionRunning = program.state.intervalSelectable = 1;
  program.window.Analisi.press();
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].text, "Aspettare lettura file o premere Stop!");
  EXPECT_TRUE(program.host.windows.asked.empty());
}

TEST(OpenReport, WithoutDataItSaysSo) {
  HeadlessReport program;
  program.window.Analisi.press();
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].text, "Nessun dato in memoria! Prima apri un file!");
  EXPECT_EQ(program.state.headerText1, "Nessun dato in memoria! Prima apri un file!");
  EXPECT_TRUE(program.host.windows.asked.empty());
}

TEST(OpenReport, WithDataTheReportOpens) {
  HeadlessReport program;
  program.state.intervalSelectable = 1;
  program.window.Analisi.press();
  EXPECT_EQ(program.host.windows.asked, Texts{"report"});
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(OpenReport, WithDataTheTextForMissingDataIsSetAllTheSame) {
  HeadlessReport program;
  program.fillHistories(1, 10);
  program.openReport();
  EXPECT_EQ(program.state.headerText1, "Nessun dato in memoria! Prima apri un file!");
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(OpenReport, InAnotherLanguageARunningAcquisitionDoesNotHoldItUp) {
  HeadlessReport program;
  program.shared.languageFlag = "Eng";
  program.state.acquisitionRunning = program.state.intervalSelectable = 1;
  program.window.Analisi.press();
  EXPECT_EQ(program.host.windows.asked, Texts{"report"});
}

TEST(OpenReport, InAnotherLanguageTheBoxForMissingDataShowsWhateverStoodThere) {
  HeadlessReport program;
  program.shared.languageFlag = "Eng";
  program.state.headerText1 = "testo di prima";
  program.window.Analisi.press();
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].text, "testo di prima");
}

TEST(LoadReport, PrintsTheHeaderAndTheVerdictsFromTopToBottom) {
  LoadedReport program;
  const Texts expected = {"Norvess Instruments",
                          "0",
                          "5",
                          "10",
                          "15",
                          "20",
                          "25",
                          "30",
                          "Hz",
                          "0",
                          "5",
                          "10",
                          "15",
                          "20",
                          "25",
                          "30",
                          "Hz",
                          "File: prova.QVD",
                          "Nome: Rossi",
                          "Data: 21/11/2026",
                          "Scala: 30 microvolts",
                          "F1-F2 Ottimo ritmo Alfa  ",
                          "T5-T6 Ottimo ritmo Alfa  ",
                          "Buona simmetria frontale",
                          "Buona simmetria temporale",
                          "F1-F2 coerenza=normale",
                          "T5-T6 coerenza=alta"};
  EXPECT_EQ(program.reportWindow.ground.texts(), expected);
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(LoadReport, TheMakersNameIsLightRedAtTheTopOfTheTextColumn) {
  LoadedReport program;
  const Mark* maker = markOf(program.reportWindow.ground, "Norvess Instruments");
  ASSERT_NE(maker, nullptr);
  EXPECT_EQ(maker->x1, 880);
  EXPECT_EQ(maker->y1, 10);
  EXPECT_EQ(maker->colour, Colour::lightRed);
}

TEST(LoadReport, FrequencyLabelsStandOnTheirOwnDots) {
  LoadedReport program;
  std::vector<std::pair<double, std::string>> labels, expected;
  std::vector<double> dots;
  for (const Mark& mark : program.reportWindow.ground.marks()) {
    if (mark.y1 != 780) continue;
    if (mark.kind == Mark::Kind::text) {
      EXPECT_EQ(mark.colour, Colour::blue) << mark.text;
      labels.emplace_back(mark.x1, mark.text);
    }
    if (mark.kind == Mark::Kind::point) {
      EXPECT_EQ(mark.colour, Colour::lightGrey);
      dots.push_back(mark.x1);
    }
  }
  for (const auto& [left, unit] : {std::pair(2, 105), std::pair(440, 550)}) {
    for (int i = 0; i <= 6; ++i) expected.emplace_back(left + 69 * i, std::to_string(5 * i));
    expected.emplace_back(unit, "Hz");
  }
  EXPECT_EQ(labels, expected);
  ASSERT_EQ(dots.size(), labels.size());
  for (std::size_t i = 0; i < dots.size(); ++i) EXPECT_EQ(dots[i], labels[i].first);
}

TEST(LoadReport, TheIntervalLabelCountsThreeSecondsABlock) {
  struct Case {
    int first, last;
    const char* label;
  };
  const Case cases[] = {{1, 1, "3s"}, {7, 7, "3s"}, {1, 30, "90s"}, {1, 199, "597s"}, {11, 10, "0s"}, {30, 9, "-60s"}};
  for (const Case& c : cases) {
    LoadedReport program(c.first, c.last);
    EXPECT_EQ(program.reportWindow.intervalLabel.text(), c.label) << c.first << ".." << c.last;
  }
}

TEST(LoadReport, AnIntervalBeyond16BitsIsAFault) {
  const std::pair<int, int> intervals[] = {{-1, 32'767}, {0, 32'767}, {1, 10'923}, {-20'000, 20'000}};
  for (const auto& [first, last] : intervals) {
    LoadedReport program(first, last);
    ASSERT_EQ(program.host.faults.size(), 1U) << first << ".." << last;
    EXPECT_EQ(program.host.faults[0], "Numero troppo grande per un campo di 16 bit");
    EXPECT_EQ(program.reportWindow.intervalLabel.text(), "");
  }
}

TEST(LoadReport, SetsTheCaptions) {
  LoadedReport program;
  const ReportWindow& window = program.reportWindow;
  EXPECT_EQ(window.exitButton.caption(), "Uscita");
  EXPECT_EQ(window.numbersButton.caption(), "Numeri");
  EXPECT_EQ(window.printButton.caption(), "Stampa");
  EXPECT_EQ(window.explainButton.caption(), "Spiega");
  EXPECT_EQ(window.commentButton.caption(), "Commenti");
  EXPECT_EQ(window.maximumCheck.caption(), "Calcolo valori max banda");
  EXPECT_EQ(window.meanCheck.caption(), "Calcolo valori medi banda");
}

TEST(LoadReport, SetsTheStartValues) {
  HeadlessReport program;
  program.shared.channelCount = 2;
  program.report.microvoltScale = 99;
  program.fillHistories(1, 10);
  program.openReport();
  EXPECT_EQ(program.report.reportBinCount, 64);
  EXPECT_EQ(program.report.microvoltScale, 30);
  EXPECT_EQ(program.shared.channelCount, 4);
  EXPECT_EQ(program.report.reportDate, "21/11/2026");
}

TEST(LoadReport, TheDateIsTheReportsOwn) {
  HeadlessReport program;
  program.host.time.setDate({2027, 1, 5, 0, 0, 0});
  program.state.recordingDate = "01/02/2003";
  program.fillHistories(1, 10);
  program.openReport();
  EXPECT_TRUE(program.reportWindow.ground.shows("Data: 05/01/2027"));
}

TEST(LoadReport, DrawsAllPanelsWithTheirBandTexts) {
  LoadedReport program;
  for (int i = 1; i <= 4; ++i) {
    EXPECT_EQ(program.reportWindow.spectrumOf(i).texts().size(), 5U) << i;
    EXPECT_EQ(program.reportWindow.coherenceOf(i).texts().size(), 1U) << i;
  }
  EXPECT_TRUE(program.reportWindow.coherence1.shows("Coerenza F1-F2=60"));
}

TEST(LoadReport, InAnotherLanguageHeaderCaptionsAndVerdictsStayEmpty) {
  HeadlessReport program;
  program.shared.languageFlag = "Eng";
  program.fillHistories(1, 10);
  program.openReport();
  for (int line = 0; line <= 14; ++line) EXPECT_EQ(program.report.reportLines[line], "") << line;
  const ReportWindow& window = program.reportWindow;
  for (const platform::Button* button :
       {&window.exitButton, &window.numbersButton, &window.printButton, &window.explainButton})
    EXPECT_EQ(button->caption(), "") << button->name();
  EXPECT_EQ(window.maximumCheck.caption(), "");
  EXPECT_EQ(window.meanCheck.caption(), "");
  EXPECT_EQ(window.ground.texts().size(), 17U);  // the maker and the frequencies
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(LoadReport, AFlatRecordingEndsInADivisionByZeroAndWhatWasDrawnStays) {
  HeadlessReport program;
  program.fillHistories(1, 10, 0, 0);
  program.openReport();
  EXPECT_EQ(program.host.faults, Texts{"Divisione per zero"});
  EXPECT_EQ(program.reportWindow.statusLabel.text(),
            "Operazione interrotta: Il calcolo non è possibile: il segnale è piatto o l'intervallo è vuoto. "
            "(Divisione per zero)");
  EXPECT_TRUE(program.reportWindow.spectrum4.shows("T6"));
  EXPECT_TRUE(program.reportWindow.coherence4.shows("Coerenza F2-T6=0"));
  EXPECT_EQ(program.reportWindow.intervalLabel.text(), "30s");
  EXPECT_EQ(program.report.reportLines[6], "");
  EXPECT_FALSE(program.host.edge.ended());
  EXPECT_EQ(program.report.reached, ReportStep::bandValues);
}

TEST(LoadReport, AfterAFaultTheWindowGoesOnWorking) {
  HeadlessReport program;
  program.fillHistories(1, 10, 0, 0);
  program.openReport();
  program.reportWindow.scaleSlider.moveTo(60);
  EXPECT_TRUE(program.reportWindow.ground.shows("Scala: 60 microvolts"));
  EXPECT_EQ(program.reportWindow.statusLabel.text(), "");
  program.reportWindow.commentButton.press();
  EXPECT_EQ(program.comments.text.texts().size(), 18U);
  program.reportWindow.exitButton.press();
  EXPECT_EQ(program.host.faults.size(), 1U);
}

TEST(LoadReport, AReversedIntervalShowsZerosWithoutASignAndNoVerdict) {
  LoadedReport program(30, 9);
  EXPECT_EQ(program.host.faults, Texts{"Divisione per zero"});
  EXPECT_TRUE(program.reportWindow.coherence1.shows("Coerenza F1-F2=0"));
}

TEST(LoadReport, AnIntervalOfNoBlockStopsBeforeTheGraphs) {
  LoadedReport program(11, 10);
  ASSERT_EQ(program.host.faults.size(), 1U);
  EXPECT_EQ(program.host.faults[0], "Divisione per zero: l'intervallo non ha blocchi");
  EXPECT_TRUE(program.reportWindow.spectrum1.texts().empty());
  EXPECT_TRUE(program.reportWindow.ground.shows("Norvess Instruments"));
}

TEST(LoadReport, RemembersHowFarItCame) {
  HeadlessReport program;
  program.fillHistories(1, 10);
  std::vector<ReportStep> steps;
  program.reportWindow.spectrum1.onChanged = [&] {
    if (steps.empty() || steps.back() != program.report.reached) steps.push_back(program.report.reached);
  };
  program.openReport();
  EXPECT_EQ(steps, (std::vector{ReportStep::noise, ReportStep::graphs}));
  EXPECT_EQ(program.report.reached, ReportStep::verdicts);
  program.openReport(11, 10);
  ASSERT_EQ(program.host.faults.size(), 1U);
  EXPECT_EQ(program.report.reached, ReportStep::none);
}

TEST(LoadReport, LaterChangesOfTheHistoriesDoNotShow) {
  LoadedReport program;
  program.fillHistories(1, 10, 44, 10);
  program.reportWindow.scaleSlider.moveTo(50);
  program.reportWindow.maximumCheck.click();
  EXPECT_TRUE(program.reportWindow.spectrum1.shows("Delta=5"));
  EXPECT_TRUE(program.reportWindow.coherence1.shows("Coerenza F1-F2=60"));
}

TEST(ReportButtons, NumbersSetsItsFlagAndWritesTheValuesAgain) {
  LoadedReport program;
  program.reportWindow.maximumCheck.setChecked(true);
  program.reportWindow.numbersButton.press();
  EXPECT_EQ(program.report.numbersFlag, 1);
  EXPECT_TRUE(program.reportWindow.spectrum1.shows("Delta=5"));
}

TEST(ReportButtons, NumbersWithBothBoxesClearedWritesTheValuesOfBefore) {
  LoadedReport program;
  auto& panel = program.reportWindow.spectrum1;
  panel.clear();
  program.reportWindow.numbersButton.press();
  EXPECT_EQ(panel.texts(), (Texts{"Delta=0", "Theta=0", "Alpha  =0", "Beta=0"}));
  for (auto* box : {&program.reportWindow.maximumCheck, &program.reportWindow.meanCheck}) {
    for (int k = 1; k <= 64; ++k) program.report.meanSpectrum[1][k] = 7;
    box->click();
    box->click();
    for (int k = 1; k <= 64; ++k) program.report.meanSpectrum[1][k] = 99;
    panel.clear();
    program.reportWindow.numbersButton.press();
    EXPECT_EQ(panel.texts(), (Texts{"Delta=7", "Theta=7", "Alpha  =7", "Beta=7"}));
  }
}

TEST(ReportButtons, ExplainShowsFourLines) {
  LoadedReport program;
  program.reportWindow.explainButton.press();
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].kind, "notice");
  EXPECT_EQ(program.host.dialogs.shown[0].text,
            "In questa versione del software e' stata introdotta anche la\r"
            " curva del rumore, che mostra la attivita' di base EEG di tipo\r"
            " indifferenziato, sempre presente. Cioe' che eccede la curva di\r"
            " rumore, e' invece una attivita' EEG piu' specifica e significativa.");
}

TEST(ReportButtons, ExitClosesTheReportAndTheMainWindowComesBack) {
  LoadedReport program;
  program.reportWindow.exitButton.press();
  EXPECT_EQ(program.host.windows.asked, (Texts{"report", "close report", "main"}));
}

TEST(ReportPrint, EmptiesTheClipboardBeforeTheCapture) {
  LoadedReport program;
  program.host.dialogs.choices.push_back(platform::Choice::ok);
  program.reportWindow.printButton.press();
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].kind, "question");
  EXPECT_EQ(program.host.dialogs.shown[0].text, "Accendere la stampante.  Viene stampata l'immagine attuale.");
  EXPECT_EQ(program.host.dialogs.shown[0].title, "Stampa Immagine");
  EXPECT_EQ(program.host.printer.done, (Texts{"empty", "key 1", "print 10 3 190 145"}));
}

TEST(ReportPrint, TheFirstFamilyOfTheSystemHasAnotherScanCode) {
  LoadedReport program;
  program.host.printer.majorVersion = 4;
  program.host.dialogs.choices.push_back(platform::Choice::ok);
  program.reportWindow.printButton.press();
  EXPECT_EQ(program.host.printer.done[1], "key 0");
}

TEST(ReportPrint, CancelLeavesEverything) {
  LoadedReport program;
  program.state.printRequested = 1;
  program.reportWindow.printButton.press();
  EXPECT_TRUE(program.host.printer.done.empty());
  EXPECT_EQ(program.state.printRequested, 1);  // the main window's own flag
}

TEST(ReportPrint, WaitsUntilTheBoxHasVanished) {
  LoadedReport program;
  program.host.dialogs.choices.push_back(platform::Choice::ok);
  const double before = program.host.time.seconds();
  program.reportWindow.printButton.press();
  EXPECT_EQ(program.report.timerMark, before);
  EXPECT_GE(program.host.time.seconds() - before, 0.2);
}

bool overlap(const Rect& a, const Rect& b) {
  return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

bool contains(const Rect& outer, const Rect& inner) {
  return inner.x >= outer.x && inner.y >= outer.y && inner.right() <= outer.right() && inner.bottom() <= outer.bottom();
}

TEST(ReportGeometry, PanelsFramesAndLabelsDoNotOverlapAndFitTheWindow) {
  namespace plan = report_geometry;
  std::vector<Rect> parts(plan::panels.begin(), plan::panels.end());
  for (const Rect& rect : {plan::buttonFrame, plan::checkBoxFrame, plan::intervalLabel, plan::statusLabel})
    parts.push_back(rect);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    EXPECT_TRUE(contains({0, 0, plan::width, plan::height}, parts[i])) << i;
    for (std::size_t j = i + 1; j < parts.size(); ++j) EXPECT_FALSE(overlap(parts[i], parts[j])) << i << ", " << j;
  }
}

TEST(ReportGeometry, ControlsStandInsideTheirFramesSideBySide) {
  namespace plan = report_geometry;
  const std::pair<Rect, std::vector<Rect>> frames[] = {
      {plan::buttonFrame,
       {plan::exitButton, plan::numbersButton, plan::printButton, plan::explainButton, plan::commentButton}},
      {plan::checkBoxFrame, {plan::maximumCheck, plan::meanCheck, plan::scaleLabel, plan::scaleSlider}}};
  for (const auto& [frame, controls] : frames)
    for (std::size_t i = 0; i < controls.size(); ++i) {
      EXPECT_TRUE(contains(frame, controls[i])) << i;
      for (std::size_t j = i + 1; j < controls.size(); ++j) EXPECT_FALSE(overlap(controls[i], controls[j]));
    }
}

TEST(ReportGeometry, NoTextOfTheGroundLiesUnderAnythingOrOverAnother) {
  LoadedReport program;
  namespace plan = report_geometry;
  std::vector<Rect> texts;
  for (const Mark& mark : program.reportWindow.ground.marks())
    if (mark.kind == Mark::Kind::text)
      // Letters are at most half as wide as their line is high, on average.
      texts.push_back(
          {static_cast<int>(mark.x1), static_cast<int>(mark.y1), static_cast<int>(8 * mark.text.size()), 18});
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_LE(texts[i].right(), plan::width) << i;
    for (const Rect& panel : plan::panels) EXPECT_FALSE(overlap(texts[i], panel)) << i;
    for (const Rect& part : {plan::buttonFrame, plan::checkBoxFrame, plan::intervalLabel})
      EXPECT_FALSE(overlap(texts[i], part)) << i;
    for (std::size_t j = i + 1; j < texts.size(); ++j) EXPECT_FALSE(overlap(texts[i], texts[j])) << i << ", " << j;
  }
}

TEST(ReportWindow, AScreenReaderSaysWhatEachControlIsFor) {
  const ReportWindow w;
  const std::pair<const platform::Control*, const char*> names[] = {{&w.exitButton, "Chiudi il rapporto"},
                                                                    {&w.numbersButton, "Riscrivi i valori delle bande"},
                                                                    {&w.printButton, "Stampa il rapporto"},
                                                                    {&w.explainButton, "Spiega la curva del rumore"},
                                                                    {&w.commentButton, "Commenti sui segnali"},
                                                                    {&w.maximumCheck, "Valori massimi"},
                                                                    {&w.meanCheck, "Valori medi"},
                                                                    {&w.scaleSlider, "Scala del rapporto in microvolt"},
                                                                    {&w.scaleLabel, "Scala del rapporto"},
                                                                    {&w.intervalLabel, "Durata dell'intervallo"},
                                                                    {&w.statusLabel, "Stato del rapporto"}};
  for (const auto& [control, name] : names) EXPECT_EQ(control->name(), name);
  const auto& slider = w.scaleSlider;
  EXPECT_EQ(std::tuple(slider.first(), slider.last(), slider.value()), std::tuple(1, 200, 30));
}

TEST(ReportWindow, APanelHasTwoUnitsAnIndexOrOneAndIsNamedForItsSites) {
  ReportWindow window;
  const char* spectra[] = {"Spettro F1", "Spettro F2", "Spettro T5", "Spettro T6"};
  const char* coherences[] = {"Coerenza F1-F2", "Coerenza T5-T6", "Coerenza F1-T5", "Coerenza F2-T6"};
  for (int number = 1; number <= 4; ++number) {
    const platform::Surface &spectrum = window.spectrumOf(number), &coherence = window.coherenceOf(number);
    EXPECT_EQ(spectrum.name(), spectra[number - 1]);
    EXPECT_EQ(coherence.name(), coherences[number - 1]);
    EXPECT_EQ(std::tuple(spectrum.width(), spectrum.height(), spectrum.lineHeight()), std::tuple(128, 200, 18));
    EXPECT_EQ(std::tuple(coherence.width(), coherence.height(), coherence.lineHeight()), std::tuple(64, 200, 18));
  }
}

TEST(ReportWindow, TheGroundAndTheCommentsHaveTheirNamesAndUnits) {
  const ReportWindow window;
  EXPECT_EQ(window.ground.name(), "Rapporto");
  EXPECT_EQ(std::tuple(window.ground.width(), window.ground.height(), window.ground.lineHeight()),
            std::tuple(1200, 900, 18));
  EXPECT_EQ(window.ground.background(), Colour::windowBackground);
  EXPECT_TRUE(window.ground.textsStay());
  const CommentWindow comments;
  EXPECT_EQ(comments.text.name(), "Testo dei commenti");
  EXPECT_EQ(std::tuple(comments.text.width(), comments.text.height(), comments.text.lineHeight()),
            std::tuple(544, 288, 16));
}

TEST(ReportWindow, PanelsAreNumberedFrom1To4) {
  ReportWindow window;
  EXPECT_EQ(&window.spectrumOf(1), &window.spectrum1);
  EXPECT_EQ(&window.spectrumOf(4), &window.spectrum4);
  EXPECT_EQ(&window.coherenceOf(2), &window.coherence2);
  for (const int number : {0, 5, -1}) {
    EXPECT_THROW(window.spectrumOf(number), RuntimeError);
    EXPECT_THROW(window.coherenceOf(number), RuntimeError);
  }
}

}  // namespace
}  // namespace korvinel
