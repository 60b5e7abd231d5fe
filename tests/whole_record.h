#pragma once

#include <map>
#include <sstream>
#include <string>

#include "headless_program.h"

namespace korvinel {

/// A program's state and display, as named texts that can be compared.
class WholeRecord {
 public:
  /// Everything except times, the line, the settings that outlive an examination, and whatever each new block
  /// overwrites.
  explicit WholeRecord(const HeadlessProgram& program) : program_(program) {
    flags();
    counts();
    texts();
    histories();
    window();
  }

  /// Adds whatever each block overwrites; comparable once a block of the new examination has been analysed.
  WholeRecord& withTheBlock() {
    const MainState& s = program_.state;
    add("sampleBlock", s.sampleBlock), add("shapeSpectrum", s.shapeSpectrum), add("spectrumRe", s.spectrumRe);
    add("spectrumIm", s.spectrumIm), add("blockDeviation", s.blockDeviation), add("mains", s.mainsDisturbance);
    add("amplitudeSpectrum", s.amplitudeSpectrum), add("filteredSamples", s.filteredSamples);
    add("meanCoherence", s.meanCoherence), add("fftRe", s.fftRe), add("fftIm", s.fftIm);
    return *this;
  }

  [[nodiscard]] const std::map<std::string, std::string>& fields() const { return fields_; }

 private:
  template <typename Value>
  static void write(std::ostringstream& text, const Value& value) {
    if constexpr (requires { value.begin(); } && !std::is_same_v<Value, std::string>)
      for (const auto& element : value) write(text, element);
    else if constexpr (requires { value.toDouble(); })
      text << value.toDouble() << ' ';
    else if constexpr (std::is_convertible_v<Value, int> && !std::is_floating_point_v<Value>)
      text << static_cast<int>(value) << ' ';
    else
      text << value << ' ';
  }
  template <typename Value>
  void add(const std::string& name, const Value& value) {
    std::ostringstream text;
    text.precision(17);
    write(text, value);
    fields_[name] = text.str();
  }

  void flags() {
    const MainState& s = program_.state;
    add("acquisitionRunning", s.acquisitionRunning), add("stopRequested", s.stopRequested);
    add("endRequested", s.endRequested), add("intervalSelectable", s.intervalSelectable);
    add("recordingActive", s.recordingActive), add("recordingArmed", s.recordingArmed);
    add("replayActive", s.replayActive), add("printRequested", s.printRequested);
    add("fileNameExists", s.fileNameExists), add("linkPending", s.linkPending), add("turnRunning", s.turnRunning);
    add("artefactFlag", s.artefactFlag), add("fileLoopRunning", s.fileLoopRunning);
    add("assembling", s.assembling), add("nextFileCommand", static_cast<int>(s.nextFileCommand));
    add("selectionDragging", s.selectionDragging), add("readHandle", static_cast<int>(s.readHandle != nullptr));
    add("tickTimer", static_cast<int>(program_.host.tickTimer.enabled()));
    add("pauseTimer", static_cast<int>(program_.host.pauseTimer.enabled()));
  }

  void counts() {
    const MainState& s = program_.state;
    const ProgramValues& v = program_.shared;
    add("blockCount", s.blockCount), add("noteCount", s.noteCount), add("openNote", s.openNote);
    add("pairToggleCount", s.pairToggleCount), add("artefactThreshold", s.artefactThreshold);
    add("channelPair", s.channelPair), add("analysisFirstBlock", v.analysisFirstBlock);
    add("analysisLastBlock", v.analysisLastBlock), add("replayStartBlock", v.replayStartBlock);
    add("fileBlockCount", v.fileBlockCount), add("temporaryContent", s.temporaryContent);
    add("temporaryWritten", s.temporaryWritten), add("tracesPair", s.tracesPair), add("spectraPair", s.spectraPair);
    add("coherencePair", s.coherencePair), add("numbersPair", s.numbersPair), add("stripPair", s.stripPair);
  }

  void texts() {
    const MainState& s = program_.state;
    add("recordingDate", s.recordingDate), add("noteTimes", s.noteTimes), add("noteTexts", s.noteTexts);
    add("openFilePath", s.openFilePath), add("openFileTitle", s.openFileTitle);
    if (!s.openFilePath.empty()) add("fileDateField", s.fileDateField);  // otherwise it is not shown
    add("recordingFault", s.recordingFault ? faultText(*s.recordingFault) : ""), add("setAsidePath", s.setAsidePath);
    add("pairLabels", s.pairLabel1 + s.pairLabel2);
    add("subjectName", program_.shared.subjectName);
    const bool named = s.intervalSelectable == 1 || s.acquisitionRunning == 1;  // a stopped scan is not
    if (named) add("dataFileName", program_.shared.dataFileName);
  }

  void histories() {
    const ProgramValues& v = program_.shared;
    add("spectrumHistory", v.spectrumHistory), add("coherenceSpectrumHistory", v.coherenceSpectrumHistory);
    add("coherenceHistory", v.coherenceHistory), add("runningMeanSpectrum", program_.state.runningMeanSpectrum);
  }

  void window() {
    const MainWindow& w = program_.window;
    for (const platform::Surface* surface :
         {&w.firstTrace, &w.secondTrace, &w.messagePanel, &w.coherenceGraph, &w.leftSpectrum, &w.rightSpectrum,
          &w.frequencyAxis, &w.leftRuler, &w.rightRuler, &w.firstNumbers, &w.secondNumbers, &w.Picture6})
      addSurface(*surface);
    for (const platform::Label* label :
         {&w.statusLabel, &w.dateLabel, &w.timeLabel, &w.blockLabel, &w.zLabel, &w.replayPositionLabel})
      add("label " + label->name(), label->text() + " ink " + std::to_string(static_cast<int>(label->ink())));
    for (const platform::TextBox* box : {&w.fileNameBox, &w.subjectBox, &w.noteBox})
      add("box " + box->name(), box->text() + ' ' + std::to_string(static_cast<int>(box->backColour())));
    add("Slider1", w.Slider1.value()), add("record button", static_cast<int>(w.Registra.backColour()));
    add("startPicture", static_cast<int>(w.startPicture.visible()));
  }

  void addSurface(const platform::Surface& surface) {
    std::ostringstream text;
    text << "ink " << static_cast<int>(surface.ink());
    for (const platform::Mark& mark : surface.marks())
      text << '\n'
           << static_cast<int>(mark.kind) << ' ' << static_cast<int>(mark.colour) << ' ' << mark.x1 << ' ' << mark.y1
           << ' ' << mark.x2 << ' ' << mark.y2 << ' ' << mark.text;
    fields_["surface " + surface.name()] = text.str();
  }

  const HeadlessProgram& program_;
  std::map<std::string, std::string> fields_;
};

}  // namespace korvinel
