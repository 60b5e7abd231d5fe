#include "frame/main_fields.h"

#include "platform/files.h"

namespace korvinel {

MainFields::MainFields(MainWindow& mainWindow, ProgramValues& programValues, platform::Platform& theHost)
    : window(mainWindow), shared(programValues), host(theHost) {}

MainFields::~MainFields() = default;

}  // namespace korvinel
