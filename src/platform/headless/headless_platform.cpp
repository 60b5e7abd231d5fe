#include "platform/headless/headless_platform.h"

#include "values/number_text.h"

namespace korvinel::platform {

void RecordingPrinter::printClipboard(double x, double y, double width, double height) {
  done.push_back("print " + shortestDecimal(x) + " " + shortestDecimal(y) + " " + shortestDecimal(width) + " " +
                 shortestDecimal(height));
}

}  // namespace korvinel::platform
