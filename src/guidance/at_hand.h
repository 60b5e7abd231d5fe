#pragma once

#include <string>

namespace korvinel {
struct MainState;
}

namespace korvinel::guidance {

/// The examination that the program works with now.
enum class AtHand {
  nothing,   ///< none: before the first one, or after a file was not opened or a Start was refused
  linking,   ///< "Start" was accepted, no block can have arrived yet
  live,      ///< blocks are being acquired, the turn that ends the acquisition included
  finished,  ///< acquired, and in memory
  opened,    ///< a file is being read, or in memory, or replayed
};

[[nodiscard]] AtHand atHand(const MainState& state);

/// Whether what the graphs show may belong to it; otherwise anything they show is left from the one before.
[[nodiscard]] bool hasGraphs(AtHand examination);

/// Of whom and of which file it is: "Rossi Anna, prova.QVD"; before a live one is recorded only of whom. "" for none.
[[nodiscard]] std::string nameOf(const MainState& state);

}  // namespace korvinel::guidance
