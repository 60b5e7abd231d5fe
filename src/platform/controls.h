#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/colour.h"
#include "values/entry_kind.h"

/// The controls of a window as plain models: they hold what they show, and a view mirrors them. Operations change
/// them through the set... functions, which never raise the user's events; a view or a test acts as the user through
/// press, type, moveTo and so on, which do.
namespace korvinel::platform {

/// What all controls share: a name for a screen reader and a hook for the view.
class Control {
 public:
  explicit Control(std::string name) : name_(std::move(name)) {}
  const std::string& name() const { return name_; }  ///< the control's role, in Italian
  std::function<void()> onChanged;                   ///< called after every change of what the control shows

 protected:
  void changed() const {
    if (onChanged) onChanged();
  }
  template <typename Field, typename Value>
  void assign(Field& field, Value&& value) {
    if (field == value) return;
    field = std::forward<Value>(value);
    changed();
  }

 private:
  std::string name_;
};

class Label : public Control {
 public:
  using Control::Control;
  const std::string& text() const { return text_; }  ///< lines are separated by "\r"
  Colour ink() const { return ink_; }
  void setText(const std::string& text) { assign(text_, text); }
  void setInk(Colour ink) { assign(ink_, ink); }

 private:
  std::string text_;
  Colour ink_ = Colour::black;
};

class Button : public Control {
 public:
  using Control::Control;
  const std::string& caption() const { return caption_; }
  Colour backColour() const { return backColour_; }
  void setCaption(const std::string& caption) { assign(caption_, caption); }
  void setBackColour(Colour colour) { assign(backColour_, colour); }

  std::function<void()> onPressed;
  void press() const {
    if (onPressed) onPressed();
  }

 private:
  std::string caption_;
  Colour backColour_ = Colour::buttonFace;
};

/// One line of text. Characters that would break the data files' lines are removed from what the user types or pastes.
/// When read-only, it accepts no input.
class TextBox : public Control {
 public:
  TextBox(std::string name, EntryKind kind, bool enabled = true)
      : Control(std::move(name)), kind_(kind), enabled_(enabled) {}
  const std::string& text() const { return text_; }
  bool enabled() const { return enabled_; }
  bool readOnly() const { return readOnly_; }
  Colour backColour() const { return backColour_; }
  void setText(const std::string& text) { assign(text_, text); }
  void setEnabled(bool enabled) { assign(enabled_, enabled); }
  void setReadOnly(bool readOnly) { assign(readOnly_, readOnly); }
  void setBackColour(Colour colour) { assign(backColour_, colour); }

  /// Requests the keyboard focus. `focusRequests` counts the requests.
  void requestFocus() {
    ++focusRequests_;
    if (onFocusRequested) onFocusRequested();
  }
  int focusRequests() const { return focusRequests_; }
  std::function<void()> onFocusRequested;

  /// The user's new content of the box, which is cleaned; a view then shows `text()`.
  void type(const std::string& text);
  std::function<void(int key)> onKey;  ///< a key's character code; 13 is Enter
  void pressKey(int key) const {
    if (enabled_ && onKey) onKey(key);
  }

 private:
  EntryKind kind_;
  std::string text_;
  bool enabled_;
  bool readOnly_ = false;
  Colour backColour_ = Colour::white;
  int focusRequests_ = 0;
};

class CheckBox : public Control {
 public:
  using Control::Control;
  const std::string& caption() const { return caption_; }
  bool checked() const { return checked_; }
  void setCaption(const std::string& caption) { assign(caption_, caption); }
  void setChecked(bool checked) { assign(checked_, checked); }

  std::function<void()> onClicked;
  void click() {
    setChecked(!checked_);
    if (onClicked) onClicked();
  }

 private:
  std::string caption_;
  bool checked_ = false;
};

/// A slider or a scroll bar: a whole number within a range.
class Range : public Control {
 public:
  Range(std::string name, int first, int last, int value)
      : Control(std::move(name)), first_(first), last_(last), value_(value) {}
  int first() const { return first_; }
  int last() const { return last_; }
  int value() const { return value_; }
  void setValue(int value) { assign(value_, within(value)); }  ///< pulled into the range

  std::function<void()> onMoved;
  void moveTo(int value) {
    setValue(value);
    if (onMoved) onMoved();
  }

 private:
  int within(int value) const { return value < first_ ? first_ : value > last_ ? last_ : value; }

  int first_, last_, value_;
};

/// A fixed picture that can be shown or hidden.
class Picture : public Control {
 public:
  using Control::Control;
  bool visible() const { return visible_; }
  void setVisible(bool visible) { assign(visible_, visible); }

 private:
  bool visible_ = true;
};

/// A surface's mouse events, x in user units.
struct PointerEvents {
  std::function<void(float x)> onPressed;
  std::function<void(float x)> onMoved;
  std::function<void(float x)> onReleased;
};

}  // namespace korvinel::platform
