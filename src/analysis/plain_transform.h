#pragma once

#include "analysis/transform.h"

namespace korvinel {

/// The reference of `transform`, one butterfly after the other, for values of any size: what the fast ways must give
/// bit by bit, and the way for values beyond their range. `re`, `im`: indexes 1..256.
void transformPlainly(Fixed* re, Fixed* im);

}  // namespace korvinel
