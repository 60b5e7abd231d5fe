#pragma once

#include "platform/machine.h"

namespace korvinel {

/// The report window and the comment window are not part of this version yet.
struct ReportWindows : platform::Windows {
  void showReport() override {}
  void closeReport() override {}
  void showComments() override {}
  void showMain() override {}
};

}  // namespace korvinel
