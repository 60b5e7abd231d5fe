#pragma once

#include <string>

namespace korvinel {

/// Turns the report's numbers into classes, and the classes into words. The limits 0.8, 0.95, 1.05, 1.2 and 1.3 are
/// 32-bit floats, compared with ratios in double precision.

/// How far alpha rises above the noise: 0 none, 1 little, 2 fair, 3 excellent.
[[nodiscard]] int alphaClass(double ratio);
/// Left level over right level: 0 even, 1 and 2 leaning to the right (slightly, strongly), -1 and -2 to the left.
[[nodiscard]] int symmetryClass(double ratio);
/// Coherence in percent: 0 very low, 1 low, 2 normal, 3 high. The temporal pair has lower limits on purpose.
[[nodiscard]] int frontalCoherenceClass(float coherence);
[[nodiscard]] int temporalCoherenceClass(float coherence);

/// Texts of the verdict lines for these classes, with the trailing blanks that line them up.
[[nodiscard]] std::string frontalAlphaVerdict(int alpha);
[[nodiscard]] std::string temporalAlphaVerdict(int alpha);
[[nodiscard]] std::string frontalSymmetryVerdict(int symmetry);
[[nodiscard]] std::string temporalSymmetryVerdict(int symmetry);
[[nodiscard]] std::string frontalCoherenceVerdict(int coherence);
[[nodiscard]] std::string temporalCoherenceVerdict(int coherence);

/// Comments. A class without a comment leaves `text` unchanged.
void commentAlpha(int frontalPlusTemporal, std::string& text);  ///< sum of both alpha classes, 0..6
void commentSymmetry(float symmetry, std::string& text);
void commentCoherence(float coherence, std::string& text);
/// Anxiety goes with little alpha and low frontal coherence.
[[nodiscard]] std::string anxietyComment(float frontalAlpha, float temporalAlpha, float coherence);

}  // namespace korvinel
