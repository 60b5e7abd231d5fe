#include "platform/surface.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

namespace korvinel::platform {
namespace {

struct MarkHash {
  std::size_t operator()(const Mark* mark) const {
    std::size_t sum =
        static_cast<std::size_t>(mark->kind) * 31 + static_cast<std::size_t>(static_cast<int>(mark->colour) + 2);
    for (const double part : {mark->x1, mark->y1, mark->x2, mark->y2})
      sum = sum * 1'000'003 + std::hash<double>{}(part);
    return sum * 1'000'003 + std::hash<std::string>{}(mark->text);
  }
};
struct SameMark {
  bool operator()(const Mark* a, const Mark* b) const { return *a == *b; }
};

/// Whether it extends from edge to edge along one axis.
struct Span {
  double from, to;
};

Span across(const Mark& box) { return {std::min(box.x1, box.x2), std::max(box.x1, box.x2)}; }
Span down(const Mark& box) { return {std::min(box.y1, box.y2), std::max(box.y1, box.y2)}; }

/// A box is painted from the pixel nearest to its start, with its length in pixels. So at every size of the picture it
/// hides shorter boxes with the same start, and any box if it extends from edge to edge.
bool hides(Span later, Span earlier, double extent) {
  const bool wholeAxis = later.from <= 0 && later.to >= extent;
  return wholeAxis || (later.from == earlier.from && later.to >= earlier.to);
}

}  // namespace

Surface::Surface(std::string name, double width, double height, double lineHeight, Colour background)
    : name_(std::move(name)),
      width_(width),
      firstHeight_(height),
      height_(height),
      lineHeight_(lineHeight),
      background_(background) {}

void Surface::clear() {
  marks_.clear();
  shade_ = {};
  foldAt_ = foldingSize;
  x_ = y_ = 0;
  height_ = firstHeight_;
  if (onChanged) onChanged();
}

void Surface::point(double x, double y, Colour colour) { add({Mark::Kind::point, colour, x, y, x, y}); }

void Surface::line(double x1, double y1, double x2, double y2, Colour colour) {
  add({Mark::Kind::line, colour, x1, y1, x2, y2});
}

void Surface::box(double x1, double y1, double x2, double y2, Colour filling) {
  const Mark box{Mark::Kind::box, filling, x1, y1, x2, y2};
  const Span width = across(box), height = down(box);
  const bool fillsSurface = width.from <= 0 && height.from <= 0 && width.to >= width_ && height.to >= height_;
  if (fillsSurface) marks_.clear();
  std::erase_if(marks_, [&](const Mark& mark) {
    if (mark.kind == Mark::Kind::box) return hides(width, across(mark), width_) && hides(height, down(mark), height_);
    // A painted-over text must no longer be read by a screen reader.
    return mark.kind == Mark::Kind::text && mark.x1 >= width.from && mark.x1 < width.to && mark.y1 >= height.from &&
           mark.y2 <= height.to;
  });
  add(box);
}

void Surface::shade(double x1, double x2, Colour colour) {
  shade_ = {x1, x2, colour};
  if (onChanged) onChanged();
}

void Surface::print(const std::string& text) { printAt(x_, y_, ink_, text); }

void Surface::printBelow(const std::string& text) {
  height_ = std::max(height_, y_ + lineHeight_);
  print(text);
}

void Surface::printAt(double x, double y, Colour colour, const std::string& text) {
  std::erase_if(marks_,
                [&](const Mark& mark) { return mark.kind == Mark::Kind::text && mark.x1 == x && mark.y1 == y; });
  add({Mark::Kind::text, colour, x, y, 0, y + lineHeight_, text});
}

std::vector<std::string> Surface::texts() const {
  std::vector<std::string> printed;
  for (const Mark& mark : marks_)
    if (mark.kind == Mark::Kind::text) printed.push_back(mark.text);
  return printed;
}

bool Surface::shows(const std::string& text) const {
  return std::any_of(marks_.begin(), marks_.end(),
                     [&](const Mark& mark) { return mark.kind == Mark::Kind::text && mark.text == text; });
}

void Surface::add(Mark mark) {
  x_ = mark.x2;
  y_ = mark.y2;
  marks_.push_back(std::move(mark));
  if (marks_.size() > foldAt_) dropRepeated();
  if (onChanged) onChanged();
}

void Surface::dropRepeated() {
  std::unordered_set<const Mark*, MarkHash, SameMark> seen;
  std::vector<Mark> kept;
  for (auto mark = marks_.rbegin(); mark != marks_.rend(); ++mark)
    if (seen.insert(&*mark).second) kept.push_back(*mark);
  std::reverse(kept.begin(), kept.end());
  marks_ = std::move(kept);
  foldAt_ = std::max(foldingSize, 2 * marks_.size());
}

}  // namespace korvinel::platform
