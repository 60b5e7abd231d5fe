#include "report/verdicts.h"

#include <array>

namespace korvinel {
namespace {

/// A single-precision limit as a double.
constexpr double single(float limit) { return static_cast<double>(limit); }

template <std::size_t count>
std::string rowOf(const std::array<const char*, count>& texts, int row) {
  return texts.at(static_cast<std::size_t>(row));
}

/// Texts for -2, -1, 0, 1, 2.
using SymmetryTexts = std::array<const char*, 5>;

}  // namespace

int alphaClass(double ratio) {
  if (ratio <= single(1.3F)) return 0;
  if (ratio < 2) return 1;
  return ratio < 3 ? 2 : 3;
}

int symmetryClass(double ratio) {
  if (ratio > single(0.8F) && ratio < single(0.95F)) return 1;
  if (ratio > single(1.05F) && ratio <= single(1.2F)) return -1;
  if (ratio < single(0.8F)) return 2;
  if (ratio > single(1.2F)) return -2;
  return 0;
}

int frontalCoherenceClass(float coherence) {
  if (coherence >= 80) return 3;
  if (coherence >= 50) return 2;
  return coherence > 40 ? 1 : 0;
}

int temporalCoherenceClass(float coherence) {
  if (coherence > 40) return 3;
  if (coherence >= 1) return 2;
  return coherence >= -10 ? 1 : 0;
}

std::string frontalAlphaVerdict(int alpha) {
  return rowOf<4>(
      {"F1-F2 niente Alfa     ", "F1-F2 Poco ritmo Alfa    ", "F1-F2 Discreto ritmo Alfa", "F1-F2 Ottimo ritmo Alfa  "},
      alpha);
}

std::string temporalAlphaVerdict(int alpha) {
  return rowOf<4>(
      {"T5-T6 niente Alfa     ", "T5-T6 Poco ritmo Alfa    ", "T5-T6 Discreto ritmo Alfa", "T5-T6 Ottimo ritmo Alfa  "},
      alpha);
}

std::string frontalSymmetryVerdict(int symmetry) {
  constexpr SymmetryTexts texts = {"F1-F2 molto sbilanciato a sinistra", "F1-F2 legg. sbilanciato a sinistra",
                                   "Buona simmetria frontale", "F1-F2 legg. sbilanciato a destra",
                                   "F1-F2 molto sbilanciato a destra"};
  return rowOf(texts, symmetry + 2);
}

std::string temporalSymmetryVerdict(int symmetry) {
  constexpr SymmetryTexts texts = {"T5-T6 molto sbilanciato a sinistra", "T5-T6 legg. sbilanciato a sinistra",
                                   "Buona simmetria temporale", "T5-T6 legg. sbilanciato a destra",
                                   "T5-T6 molto sbilanciato a destra"};
  return rowOf(texts, symmetry + 2);
}

std::string frontalCoherenceVerdict(int coherence) {
  return rowOf<4>(
      {"F1-F2 coerenza=molto bassa", "F1-F2 coerenza=bassa", "F1-F2 coerenza=normale", "F1-F2 coerenza=elevata"},
      coherence);
}

std::string temporalCoherenceVerdict(int coherence) {
  return rowOf<4>(
      {"T5-T6 coerenza=molto bassa", "T5-T6 coerenza=bassa", "T5-T6 coerenza=normale", "T5-T6 coerenza=alta"},
      coherence);
}

void commentAlpha(int frontalPlusTemporal, std::string& text) {
  switch (frontalPlusTemporal) {
    case 0: text = "Molto basso: puo' essere utile training Alfa."; break;
    case 1:
    case 2: text = "Basso "; break;
    case 3: text = "Normale "; break;
    case 4: text = "Discreto"; break;
    case 5: text = "Elevato "; break;
    case 6: text = "Molto alto"; break;
    default: break;
  }
}

void commentSymmetry(float symmetry, std::string& text) {
  if (symmetry == 0) text = " Bilanciamento buono";
  if (symmetry == -1) text = "Leggermente sbilanciato sinistra";
  if (symmetry == -2) text = "Sbilanciato a sinistra";
  if (symmetry == 1) text = "Leggermente sbilanciato destra";
  if (symmetry == 2) text = "Sbilanciato a destra";
}

void commentCoherence(float coherence, std::string& text) {
  if (coherence == 3) text = "Ottimo";
  if (coherence == 2) text = "Normale";
  if (coherence == 1) text = "Leggermente basso";
  if (coherence == 0) text = "Basso: possibile sintomo ansia/stress";
}

std::string anxietyComment(float frontalAlpha, float temporalAlpha, float coherence) {
  const float alpha = frontalAlpha + temporalAlpha;
  const float all = alpha + coherence;
  // In this order: a later rule overrides an earlier one.
  std::string text = "Basso";
  if (all == 0) text = "Elevato";
  if (all == 1) text = "significativo";
  if (alpha == 1 && coherence == 1) text = "significativo";
  if (alpha == 2 && coherence == 0) text = "significativo";
  if (alpha == 2 && coherence >= 1) text = "Basso";
  if (alpha >= 2 && coherence >= 2) text = "molto Basso";
  return text;
}

}  // namespace korvinel
