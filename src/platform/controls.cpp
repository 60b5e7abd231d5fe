#include "platform/controls.h"

#include "values/code_page.h"

namespace korvinel::platform {

void TextBox::type(const std::string& text) {
  if (!enabled_ || readOnly_) return;
  text_ = cleanEntry(text, kind_);
  changed();
}

}  // namespace korvinel::platform
