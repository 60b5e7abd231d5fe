#pragma once

#include <stdlib.h>

#include <optional>
#include <string>
#include <utility>

namespace korvinel::platform {

/// An environment variable, set for the lifetime of the object.
class Environment {
 public:
  Environment(std::string name, const char* value) : name_(std::move(name)) {
    if (const char* before = getenv(name_.c_str())) before_ = before;
    value == nullptr ? unsetenv(name_.c_str()) : setenv(name_.c_str(), value, 1);
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() { before_ ? setenv(name_.c_str(), before_->c_str(), 1) : unsetenv(name_.c_str()); }

 private:
  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace korvinel::platform
