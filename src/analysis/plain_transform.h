#pragma once

#include "analysis/transform.h"

namespace korvinel {

/// The reference for `transform`, one butterfly at a time, for values of any size. The fast versions must give the same
/// bits; it is used for values beyond their range. `re`, `im`: indexes 1..256.
void transformPlainly(Fixed* re, Fixed* im);

}  // namespace korvinel
