#include "guidance/refusal.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>
#include <utility>
#include <vector>

#include "opened_file.h"

/// What is said before a command must be what the command then does, whatever the examination has come to.
namespace korvinel::guidance {
namespace {

using Act = std::function<void()>;

struct Moment {
  const char* name;
  std::function<void(FileProgram&, const Act& act)> reach;  ///< brings the program there and acts
};

void begin(FileProgram& program) {
  program.window.fileNameBox.type("prova");
  program.window.subjectBox.type("Rossi");
  program.window.Starts1.press();
}

void end(FileProgram& program) {
  program.window.Stopd1.press();
  program.host.time.runUntil([&] { return !program.state.acquisitionPending(); });
}

void inScan(FileProgram& program, const Act& act) {
  program.host.time.when([&] { return program.state.fileLoopRunning == 1 && program.state.blockCount == 3; }, act);
  program.open();
}

void inReplay(FileProgram& program, const Act& act) {
  program.open();
  program.host.time.when([&] { return program.state.replayActive == 1 && program.state.blockCount == 3; }, act);
  program.window.Displayx.press();
}

const std::vector<Moment> moments = {
    {"at rest", [](FileProgram&, const Act& act) { act(); }},
    {"at rest with a name",
     [](FileProgram& program, const Act& act) {
       program.window.fileNameBox.type("prova");
       act();
     }},
    {"in the handshake",
     [](FileProgram& program, const Act& act) {
       program.host.time.after(2, act);
       begin(program);
     }},
    {"listening",
     [](FileProgram& program, const Act& act) {
       begin(program);
       program.acquireBlocks(2);
       act();
     }},
    {"recording",
     [](FileProgram& program, const Act& act) {
       begin(program);
       program.acquireBlocks(1);
       program.window.Registra.press();
       program.acquireBlocks(2);
       act();
     }},
    {"stopping",
     [](FileProgram& program, const Act& act) {
       begin(program);
       program.acquireBlocks(2);
       program.window.Stopd1.press();
       act();
     }},
    {"after an examination",
     [](FileProgram& program, const Act& act) {
       begin(program);
       program.acquireBlocks(2);
       end(program);
       act();
     }},
    {"in a scan", inScan},
    {"with a file open",
     [](FileProgram& program, const Act& act) {
       program.open();
       act();
     }},
    {"in a replay", inReplay},
};

platform::Button& buttonOf(Command command, MainWindow& window) {
  switch (command) {
    case Command::start: return window.Starts1;
    case Command::stop: return window.Stopd1;
    case Command::record: return window.Registra;
    case Command::note: return window.Annotax;
    case Command::open: return window.Openx;
    case Command::replay: return window.Displayx;
    case Command::report: return window.Analisi;
    default: return window.Artefact;
  }
}

/// Everything by which a command can act, short of a notice.
auto traceOf(const FileProgram& program) {
  const MainState& state = program.state;
  int asked = 0;
  for (const auto& box : program.host.dialogs.shown) asked += box.kind == "notice" ? 0 : 1;
  const bool stops = state.stopRequested == 1 &&
                     (state.acquisitionPending() || state.fileLoopRunning == 1 || state.intervalSelectable == 1);
  return std::tuple(static_cast<int>(state.acquisitionRunning), stops, static_cast<int>(state.recordingActive),
                    static_cast<int>(state.noteCount), static_cast<int>(state.linkPending), state.decodedBlocks,
                    static_cast<int>(state.replayActive), static_cast<int>(state.nextFileCommand), asked,
                    program.host.windows.asked.size());
}

constexpr Command commands[] = {Command::start,     Command::stop, Command::record, Command::note,
                                Command::threshold, Command::open, Command::replay, Command::report};

TEST(Refusals, SayBeforehandWhatTheCommandsThenDo) {
  for (const Moment& moment : moments)
    for (const Command command : commands) {
      FileProgram program;
      bool reached = false;
      moment.reach(program, [&] {
        reached = true;
        const std::string why = whyRefused(command, program.state);
        const auto before = traceOf(program);
        buttonOf(command, program.window).press();
        const bool acts = traceOf(program) != before;
        EXPECT_EQ(why.empty(), acts) << moment.name << ", " << buttonOf(command, program.window).name() << ": " << why;
      });
      EXPECT_TRUE(reached) << moment.name;
    }
}

}  // namespace
}  // namespace korvinel::guidance
