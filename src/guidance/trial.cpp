#include "guidance/trial.h"

#include <string>

namespace korvinel::guidance {

bool isOfTrial(std::string_view path) {
  constexpr std::string_view folder = "/korvinel-prova/";
  return (std::string(path) + "/").find(folder) != std::string::npos;
}

}  // namespace korvinel::guidance
