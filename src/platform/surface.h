#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/colour.h"

namespace korvinel::platform {

/// One thing drawn on a surface, in the surface's user units (x to the right, y downward).
struct Mark {
  enum class Kind : unsigned char { point, line, box, text };
  Kind kind;
  Colour colour;          ///< of the line, the filling or the ink
  double x1, y1;          ///< the point; the line's start; a corner of the box; the text's top left
  double x2 = 0, y2 = 0;  ///< the line's end; the box's other corner
  std::string text = {};
  friend bool operator==(const Mark&, const Mark&) = default;
};

/// A drawing surface that keeps what was drawn since its last clear as plain data. A view paints these marks at the
/// true pixels of its widget or page. It has user units, a current position and an ink.
class Surface {
 public:
  /// `name`: the surface's role in Italian, for a screen reader. `width`, `height`: its extent in user units; only
  /// printBelow changes the height.
  /// `lineHeight`: user units from one line of text to the next; letters are sized to it.
  Surface(std::string name, double width, double height, double lineHeight, Colour background = Colour::white);

  /// Removes everything, the shade included, and moves the position to (0, 0). The ink stays; the height returns to its
  /// initial value.
  void clear();

  /// A point or a line moves the position to its end, a box to its second corner.
  void point(double x, double y, Colour colour);
  void line(double x1, double y1, double x2, double y2, Colour colour);
  /// A box removes the texts that begin in it and are no taller than it, and the boxes that it covers completely.
  void box(double x1, double y1, double x2, double y2, Colour filling);

  /// Prints at the position, which then moves to the left edge of the next line. A text at exactly the position of an
  /// earlier one replaces it.
  void print(const std::string& text);
  /// Prints at (x, y) in this colour; the ink for later texts stays.
  void printAt(double x, double y, Colour colour, const std::string& text);

  /// Prints at the position on a surface that grows downward with its texts.
  void printBelow(const std::string& text);

  /// Texts start exactly where they are printed, however long: a view makes them smaller, or finally shortens them,
  /// instead of moving them to the left.
  void keepTextsInPlace() { textsStay_ = true; }
  bool textsStay() const { return textsStay_; }

  /// Boxes form the background: whatever the order, they never hide a line, a point or a text.
  void keepBoxesBelow() { boxesBelow_ = true; }
  bool boxesLieBelow() const { return boxesBelow_; }

  /// Tints a range of x over the whole height, behind everything drawn. There is one shade at a time; an empty range
  /// removes it.
  struct Shade {
    double x1 = 0, x2 = 0;  ///< in either order
    Colour colour = Colour::white;
    friend bool operator==(const Shade&, const Shade&) = default;
  };
  void shade(double x1, double x2, Colour colour);
  const Shade& shade() const { return shade_; }

  void setInk(Colour ink) { ink_ = ink; }  ///< for the texts that follow; black at first
  Colour ink() const { return ink_; }

  const std::string& name() const { return name_; }
  double width() const { return width_; }
  double height() const { return height_; }
  double lineHeight() const { return lineHeight_; }
  Colour background() const { return background_; }
  const std::vector<Mark>& marks() const { return marks_; }
  [[nodiscard]] std::vector<std::string> texts() const;     ///< the texts shown, in the order of printing
  [[nodiscard]] bool shows(const std::string& text) const;  ///< whether this text is shown

  std::function<void()> onChanged;  ///< the view's hook, called after every change

  /// Above this number of marks, and then at each doubling, a mark that an equal later one repeats is dropped. What can
  /// be seen is never dropped: a surface stays small because boxes hide earlier ones, texts replace those at their
  /// position, and it is cleared before each new picture.
  static constexpr std::size_t foldingSize = 8'000;

 private:
  void add(Mark mark);
  void dropRepeated();

  std::string name_;
  double width_, firstHeight_, height_, lineHeight_;
  Colour background_;
  Colour ink_ = Colour::black;
  bool textsStay_ = false;
  bool boxesBelow_ = false;
  Shade shade_;
  std::size_t foldAt_ = foldingSize;
  double x_ = 0, y_ = 0;
  std::vector<Mark> marks_;
};

}  // namespace korvinel::platform
