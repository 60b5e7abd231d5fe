#include "values/bounded.h"

#include "values/runtime_error.h"

namespace korvinel {

void throwSubscript() { throw RuntimeError(Fault::subscript, "Indice fuori dai limiti"); }

}  // namespace korvinel
