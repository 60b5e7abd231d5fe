#include "platform/windows/system_wakefulness.h"

#include <windows.h>

namespace korvinel::platform {

void SystemWakefulness::hold() { SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED); }

void SystemWakefulness::release() { SetThreadExecutionState(ES_CONTINUOUS); }

}  // namespace korvinel::platform
