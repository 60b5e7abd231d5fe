#include "values/bounded.h"

#include "values/runtime_error.h"

namespace korvinel {

void throwSubscript() { throw RuntimeError(Cause::indexOutside); }

}  // namespace korvinel
