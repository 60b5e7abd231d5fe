#pragma once

#include "values/fixed.h"

namespace korvinel {

/// Angle in radians, -pi..pi with pi as 3.14159265, of the imaginary part `a` and the real part `b`; it is measured
/// from the imaginary axis. phaseAngle(0, 0) is 0.
[[nodiscard]] double phaseAngle(double a, double b);

/// Arc tangent and cosine from basic arithmetic alone, within a few units in the last place of a double: mathematics
/// libraries differ in the last bits, and results must be the same on every machine.
[[nodiscard]] double arcTangent(double number);
/// `angle`: -7..7 radians.
[[nodiscard]] double cosine(double angle);

/// 100 x the cosine of the difference of two phases, each -pi..pi.
[[nodiscard]] float phaseCoherence(Fixed first, Fixed second);

// The same for all indexes 1..128 of a spectrum, with the same results to the last bit.

/// `phases[i]` becomes phaseAngle(im[i], re[i]), rounded to four decimals.
void phasesOf(const Fixed* re, const Fixed* im, Fixed* phases);
/// `coherence[i]` becomes phaseCoherence(first[i], second[i]).
void phaseCoherences(const Fixed* first, const Fixed* second, float* coherence);

}  // namespace korvinel
