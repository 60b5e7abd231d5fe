#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>

#include "campaign.h"
#include "frame/fault_sentence.h"
#include "head_blocks.h"
#include "headless_report.h"
#include "ledger.h"
#include "recording/data_paths.h"
#include "recordings.h"

/// A user who presses, types, drags and answers at random, in every state of the program. After every act the program's
/// state must be consistent; at the end it must end, with everything recorded saved.
namespace korvinel {
namespace {

using campaign::Dice;
using platform::Choice;

/// Blocks of all signal models, and some that no subject produces.
std::vector<std::string> variedBlocks() {
  std::vector<std::string> blocks{std::string(1024, '\0'), std::string(1024, '\xFF'), std::string(1024, '\x80'),
                                  std::string(1023, '\x80'), std::string(1500, '\x40')};
  for (const instrument::Model model : {instrument::Model::eyesClosed, instrument::Model::blinks,
                                        instrument::Model::mainsHum, instrument::Model::saturated}) {
    const auto source = instrument::modelSource({{model}}, 7);
    for (int i = 0; i < 5; ++i) blocks.push_back(blockOf(*source));
  }
  return blocks;
}

std::string wholeFile(int blocks, const std::string& version = "V3", int notes = 1) {
  std::string file = recordings::header(recordings::Notes(static_cast<std::size_t>(notes), {1, "nota"}), version);
  for (int block = 1; block <= blocks; ++block) file += recordings::block(recordings::levelOf(block));
  return file;
}

/// The files that exist when a program starts.
std::map<std::string, std::string> filesAtTheBeginning() {
  const auto in = [](const char* name) { return std::string(dataFolder) + name; };
  return {{in("lungo.QVD"), wholeFile(60, "V3", 59)},
          {in("corto.QVD"), wholeFile(1)},
          {in("vuoto.QVD"), ""},
          {in("testa.QVD"), wholeFile(0)},
          {in("ignoto.QVD"), wholeFile(3, "V9")},
          {in("troppe.QVD"), wholeFile(3, "V3", 70)},
          {in("pieno.QVD"), wholeFile(205)},
          {in("mozzo.QVD"), wholeFile(4).substr(0, 3000)}};
}

const std::vector<std::string> texts{
    "",   "prova", "a",   "Rossi", "lungo",   "LUNGO.QVD",          "x\"y,z", "nota con accento \xC3\xA0", "C:\\altro",
    "90", "70",    "100", "130,5", "novanta", std::string(300, 'n')};

/// A program operated at random, from its start to its end.
class Monkey {
 public:
  Monkey(Dice& dice, int acts) : dice_(dice), actsLeft_(acts) {
    program_.host.files.content.merge(filesAtTheBeginning());
    program_.host.dialogs.whileOpen = [this] { beModal(); };
    program_.host.dialogs.onQuestion = [this](const std::string& text) { return savesOrGivesUp(text); };
    program_.host.edge.onFault = [this](const std::exception& fault) { judge(fault); };
    program_.state.startUp();
    program_.host.instrument.idleBlock = dice_.from(blocks());
    program_.host.time.onStep = [this, others = program_.host.time.onStep] {
      others();
      ledger_.watch();
    };
  }

  /// Returns the number of acts left when the program ended.
  int play() {
    scheduleNext();
    while (actsLeft_ > 0 && !ended() && !testing::Test::HasFailure()) {
      const int before = actsLeft_;
      program_.host.time.runFor(120);
      if (!ended() && actsLeft_ == before) ADD_FAILURE() << "nothing more is done: " << lastActs();
    }
    if (!testing::Test::HasFailure()) bringToItsEnd();
    ledger_.expectAllHome(lastActs());
    seen_["recordings"] += ledger_.count();
    return actsLeft_;
  }

  int deepest() const { return deepest_; }
  /// How often each box was shown and each state was seen after an act; shows whether every state was reached.
  const std::map<std::string, int>& seen() const { return seen_; }

 private:
  static const std::vector<std::string>& blocks() {
    static const std::vector<std::string> all = variedBlocks();
    return all;
  }

  [[nodiscard]] bool ended() const { return program_.host.edge.ended(); }

  void scheduleNext() {
    if (actsLeft_ == 0) return;
    --actsLeft_;
    const double delay = dice_.from(std::vector<double>{0, 0, 0.001, 0.1, 0.1, 0.5, 2, dice_.oneIn(10) ? 20.0 : 3.1});
    program_.host.time.after(delay, [this] {
      scheduleNext();
      ++depth_;
      deepest_ = std::max(deepest_, depth_);
      if (openBoxes_.empty()) act();
      --depth_;
      check();
    });
  }

  /// Lets time pass while a box is open; the other windows cannot be used meanwhile.
  void beModal() {
    const std::string text = program_.host.dialogs.shown.back().text;
    ++seen_["box: " + text.substr(0, 40)];
    if (ended()) return;  // last words: nothing else happens
    if (!openBoxes_.insert(text).second) ADD_FAILURE() << "open twice: " << text << "\n" << lastActs();
    const double until = program_.host.time.seconds() + dice_.below(40) / 10.0;
    try {
      while (program_.host.time.seconds() < until) program_.host.time.process();
    } catch (...) {
      openBoxes_.erase(text);
      throw;
    }
    openBoxes_.erase(text);
    program_.host.dialogs.shown.clear();
  }

  /// The answer to the boxes about a recording that could not be saved; none for other boxes.
  std::optional<platform::Choice> savesOrGivesUp(const std::string& text) {
    if (!text.starts_with("La registrazione non") && !text.starts_with("Rinunciare")) return std::nullopt;
    program_.host.dialogs.folders.assign(1, dice_.oneIn(2) ? "/altrove/" : "");
    return dice_.oneIn(2) ? Choice::ok : Choice::cancel;
  }

  void prepareAnswers() {
    auto& dialogs = program_.host.dialogs;
    dialogs.choices.assign(30, dice_.oneIn(40) ? Choice::cancel : Choice::ok);
    dialogs.inputs.assign(1, dice_.from(texts));
    std::vector<std::string> paths{"", "C:\\nirgends\\x.QVD"};
    for (const auto& [path, bytes] : program_.host.files.content) paths.push_back(path);
    dialogs.files.assign(1, dice_.from(paths));
  }

  void act() {
    prepareAnswers();
    const int kind = dice_.below(100);
    remember("act " + std::to_string(kind));
    if (kind < 50) return pressSomething();
    if (kind < 60) return typeSomething();
    if (kind < 70) return moveSomething();
    if (kind < 80) return touchTheStrip();
    if (kind < 90) return useTheReport();
    disturb();
  }

  void remember(const std::string& what) {
    lastActs_.push_back(what);
    if (lastActs_.size() > 12) lastActs_.pop_front();
  }

  [[nodiscard]] std::string lastActs() const {
    std::string text = "after:";
    for (const std::string& each : lastActs_) text += "\n  " + each;
    return text + "\n  at " + std::to_string(program_.host.time.seconds());
  }

  /// Begins an examination that can succeed: a new name, and often a recording.
  void beginExamination() {
    MainWindow& window = program_.window;
    window.Stopd1.press();
    window.fileNameBox.type("n" + std::to_string(dice_.below(60)));
    window.subjectBox.type(dice_.oneIn(2) ? "Rossi" : "Bianchi");
    window.Starts1.press();
    if (dice_.oneIn(3)) return;
    window.Registra.press();
  }

  void pressSomething() {
    MainWindow& window = program_.window;
    if (dice_.oneIn(10)) return beginExamination();
    if (program_.state.acquisitionRunning == 1 && dice_.oneIn(4)) return window.Registra.press();
    if (program_.state.acquisitionRunning == 1 && dice_.oneIn(8)) {
      program_.host.dialogs.inputs.assign(1, "70");
      return window.Artefact.press();
    }
    // A confirmed print asks again after every replay until it is cancelled.
    if (program_.state.printRequested == 1 && dice_.oneIn(2)) program_.host.dialogs.choices.assign(30, Choice::cancel);
    const std::vector<platform::Button*> often{&window.Starts1, &window.Starts1,  &window.Registra, &window.Annotax,
                                               &window.Openx,   &window.Displayx, &window.Analisi};
    const std::vector<platform::Button*> all{&window.Starts1, &window.Stopd1,   &window.Registra, &window.Annotax,
                                             &window.Canali,  &window.Artefact, &window.Openx,    &window.Displayx,
                                             &window.Analisi, &window.Stampa};
    if (dice_.oneIn(150)) return window.Endx1.press();
    if (dice_.oneIn(150)) return program_.host.edge.run([&] { (void)program_.state.closeWindow(); });
    if (dice_.oneIn(8)) return window.ocularCheck.click();
    if (program_.state.fileLoopRunning == 1 && dice_.oneIn(4)) return pressDuringAReplay();
    const platform::Button& button = dice_.oneIn(2) ? *dice_.from(often) : *dice_.from(all);
    remember(button.name());
    button.press();
  }

  /// Prints, and begins something else while the print waits for its image.
  void pressDuringAReplay() {
    MainWindow& window = program_.window;
    program_.host.dialogs.choices.assign(30, Choice::ok);
    remember("print, Stop, Start during a replay");
    window.Stampa.press();
    if (dice_.oneIn(2)) window.Stopd1.press();
    if (dice_.oneIn(2)) window.Starts1.press();
  }

  void confirmNote() {
    platform::TextBox& box = program_.window.noteBox;
    const bool kept = box.enabled() && program_.state.recordingActive == 1 && program_.state.assembling == 0;
    if (kept && dice_.oneIn(2)) box.type("nota " + std::to_string(dice_.below(1'000'000)));
    const std::string text = box.text();
    box.pressKey(13);
    if (kept && text.starts_with("nota ") && box.text().empty()) ledger_.noteConfirmed(text);
  }

  void typeSomething() {
    MainWindow& window = program_.window;
    switch (dice_.below(4)) {
      case 0: return window.fileNameBox.type(dice_.oneIn(3) ? dice_.from(texts) : "n" + std::to_string(dice_.below(9)));
      case 1: return window.subjectBox.type(dice_.from(texts));
      case 2: return window.noteBox.type(dice_.from(texts));
      default: return dice_.oneIn(4) ? window.noteBox.pressKey(65) : confirmNote();
    }
  }

  void moveSomething() {
    platform::Range& range = *dice_.from(
        std::vector<platform::Range*>{&program_.window.HScroll1, &program_.window.HScroll2, &program_.window.Slider1});
    range.moveTo(dice_.between(range.first() - 3, range.last() + 3));
  }

  void touchTheStrip() {
    // The press is on the strip; a drag may then go anywhere on the screen.
    const auto& pointer = program_.window.stripPointer;
    const auto x = static_cast<float>(dice_.between(0, 6000)) / 10.0F;
    const auto anywhere = static_cast<float>(dice_.between(-3000, 9000));
    remember("strip " + std::to_string(x) + " " + std::to_string(anywhere));
    switch (dice_.below(3)) {
      case 0: return pointer.onPressed(x);
      case 1: return pointer.onMoved(dice_.oneIn(3) ? anywhere : x);
      default: return pointer.onReleased(dice_.oneIn(3) ? anywhere : x);
    }
  }

  void useTheReport() {
    ReportWindow& window = program_.reportWindow;
    switch (dice_.below(6)) {
      case 0: return window.maximumCheck.click();
      case 1: return window.meanCheck.click();
      case 2: return window.scaleSlider.moveTo(dice_.between(-5, 300));
      case 3: return window.commentButton.press();
      case 4: return window.exitButton.press();
      default:
        dice_.from(std::vector<platform::Button*>{&window.numbersButton, &window.printButton, &window.explainButton})
            ->press();
    }
  }

  /// Causes faults outside the user's control.
  void disturb() {
    auto& host = program_.host;
    switch (dice_.below(10)) {
      case 0: return host.instrument.goSilent();
      case 1: return dice_.oneIn(3) ? host.serialPort.unplug() : host.serialPort.plugIn();
      case 2: host.instrument.answer = dice_.from(std::vector<std::string>{"OK", "OK", "OK", "", "KO", "OKOK"}); return;
      case 3: host.files.readOnly = dice_.oneIn(4); return;
      case 4: host.files.freeSpace = dice_.oneIn(3) ? dice_.below(20'000) : 1'000'000'000; return;
      case 5:
      case 6: return disturbTheFiles();
      case 7: host.files.failingAt.clear(); return;
      default: host.instrument.idleBlock = dice_.from(blocks()); host.serialPort.plugIn();
    }
  }

  /// Changes files as another program might.
  void disturbTheFiles() {
    auto& files = program_.host.files;
    const std::string any = "n" + std::to_string(dice_.below(60)) + ".QVD";
    const std::string data = dataFolder + (dice_.oneIn(2) ? any : program_.shared.dataFileName);
    if (!data.ends_with(".QVD")) return;
    remember("files " + data);
    switch (dice_.below(5)) {
      case 0: files.content.erase(temporaryPath); return;
      case 1:
        files.content.erase(data);
        ledger_.fileErased(data);
        return;
      case 2:
        if (!files.content.contains(data)) files.content[data] = wholeFile(2);
        return;
      case 3:
        if (files.content.contains(temporaryPath)) files.content[temporaryPath] = dice_.oneIn(2) ? "" : wholeFile(1);
        return;
      default:
        for (const auto& [path, bytes] : files.content)
          if (dice_.oneIn(4)) files.failingAt[path] = static_cast<std::size_t>(dice_.below(100'000));
    }
  }

  void check() {
    checkFlags();
    checkCounts();
    checkSurfaces();
  }

  /// Allows only the faults that bad files and bad intervals may cause.
  void judge(const std::exception& cause) {
    const std::string fault = faultText(cause);
    const bool emptyRecording = program_.shared.fileBlockCount == 0 && fault == "Divisione per zero";
    const bool allowed = emptyRecording || fault.starts_with("Impossibile ") ||
                         fault.starts_with("La lettura si è fermata") ||
                         program_.reportWindow.statusLabel.text() == faultSentence(cause);
    if (!allowed) ADD_FAILURE() << fault << "\n" << lastActs();
  }

  void checkFlags() {
    const MainState& state = program_.state;
    const std::map<std::string, int> flags{{"acquisitionRunning", state.acquisitionRunning},
                                           {"stopRequested", state.stopRequested},
                                           {"endRequested", state.endRequested},
                                           {"intervalSelectable", state.intervalSelectable},
                                           {"recordingActive", state.recordingActive},
                                           {"recordingArmed", state.recordingArmed},
                                           {"replayActive", state.replayActive},
                                           {"printRequested", state.printRequested},
                                           {"fileNameExists", state.fileNameExists},
                                           {"linkReady", state.linkReady},
                                           {"artefactFlag", state.artefactFlag},
                                           {"selectionDragging", state.selectionDragging},
                                           {"assembling", state.assembling}};
    for (const auto& [name, value] : flags)
      if (value != 0 && value != 1) ADD_FAILURE() << name << " = " << value << "\n" << lastActs();
    for (const auto& [name, value] : flags) seen_[name] += value;
    seen_["file loop"] += state.fileLoopRunning;
    seen_["report open"] += static_cast<int>(!program_.host.windows.asked.empty());
    if (state.recordingArmed == 1 && state.recordingActive == 0)
      ADD_FAILURE() << "armed without recording\n" << lastActs();
    // A loop whose file was closed by Start may still have to unwind.
    if (state.recordingActive == 1 && state.readHandle != nullptr)
      ADD_FAILURE() << "a file is read while another is recorded\n" << lastActs();
  }

  void expectWithin(const char* name, int value, int first, int last) {
    if (value < first || value > last)
      ADD_FAILURE() << name << " = " << value << " is not in " << first << ".." << last << "\n" << lastActs();
  }

  void checkCounts() {
    const MainState& state = program_.state;
    const ProgramValues& shared = program_.shared;
    expectWithin("blockCount", state.blockCount, 0, 202);
    expectWithin("noteCount", state.noteCount, 0, 60);
    expectWithin("artefactThreshold", state.artefactThreshold, 70, 130);
    expectWithin("channelPair", state.channelPair, 1, 2);
    expectWithin("displaySpeed", state.displaySpeed, 1, 20);
    expectWithin("microvoltScale", state.microvoltScale, 10, 200);
    expectWithin("fileBlockCount", shared.fileBlockCount, 0, 200);
    expectWithin("replayStartBlock", shared.replayStartBlock, 0, 200);
    expectWithin("analysisFirstBlock", shared.analysisFirstBlock, 0, 200);
    expectWithin("analysisLastBlock", shared.analysisLastBlock, -1000, 200);  // negative: a reversed interval
  }

  void checkSurfaces() {
    for (const platform::Surface* surface :
         {&program_.window.firstTrace, &program_.window.secondTrace, &program_.window.leftSpectrum,
          &program_.window.rightSpectrum, &program_.window.Picture6, &program_.window.messagePanel,
          &program_.window.coherenceGraph, &program_.comments.text})
      if (surface->marks().size() > platform::Surface::foldingSize) ADD_FAILURE() << surface->name() << " grows";
  }

  /// Often leaves the program in mid-examination, with blocks that are rejected.
  void makeItHard() {
    auto& host = program_.host;
    if (dice_.oneIn(2)) host.edge.run([&] { beginExamination(); });
    if (dice_.oneIn(2)) host.instrument.idleBlock = std::string(1024, '\xFF');
    if (dice_.oneIn(2)) program_.state.artefactThreshold = 70;
    host.time.runFor(dice_.below(100) / 10.0);
  }

  /// Ends the program by End or by closing the window, which must take at most a turn; or leaves it alone for a while
  /// and then closes the window.
  void bringToItsEnd() {
    auto& host = program_.host;
    host.dialogs.whileOpen = {};
    host.dialogs.choices.assign(500, Choice::ok);
    const int way = dice_.below(3);
    ++seen_[way == 0 ? "ends: End" : way == 1 ? "ends: closed" : "ends: left alone, then closed"];
    makeItHard();
    if (way == 2) {
      host.serialPort.plugIn();
      host.instrument.answer = "OK";
      host.time.runFor(20);
    }
    if (ended()) return;
    if (way == 0)
      program_.window.Endx1.press();
    else
      host.edge.run([&] { (void)program_.state.closeWindow(); });
    host.time.runFor(12);
    EXPECT_TRUE(ended()) << lastActs();
  }

  Dice& dice_;
  int actsLeft_;
  int depth_ = 0, deepest_ = 0;
  std::deque<std::string> lastActs_;
  std::set<std::string> openBoxes_;
  std::map<std::string, int> seen_;
  HeadlessReport program_;
  Ledger ledger_{program_};
};

TEST(Hands, RandomOnesLeaveTheProgramInASoundState) {
  Dice dice(20261121);
  int left = campaign::size(8'000, 100'000), deepest = 0;
  std::map<std::string, int> seen;
  while (left > 0 && !testing::Test::HasFailure()) {
    const int life = std::min(left, dice.between(20, 150));
    const auto monkey = std::make_unique<Monkey>(dice, life);
    left -= life - monkey->play();
    deepest = std::max(deepest, monkey->deepest());
    for (const auto& [what, count] : monkey->seen()) seen[what] += count;
    ++seen["programs"];
  }
  for (const auto& [what, count] : seen) std::printf("%7d  %s\n", count, what.c_str());
  EXPECT_LT(deepest, 30) << "acts within acts";
  for (const char* state : {"acquisitionRunning", "recordingActive", "replayActive", "file loop", "report open",
                            "recordings", "ends: End", "ends: closed", "ends: left alone, then closed"})
    EXPECT_GT(seen[state], 0) << state << " was never reached";
}

}  // namespace
}  // namespace korvinel
