#pragma once

#include "values/int16.h"

namespace korvinel {

/// Sets a flag of the record to 1 during its lifetime, and to 0 however the operation is left.
class HeldFlag {
 public:
  explicit HeldFlag(Int16& flag) : flag_(flag) { flag_ = 1; }
  ~HeldFlag() { flag_ = 0; }
  HeldFlag(const HeldFlag&) = delete;
  HeldFlag& operator=(const HeldFlag&) = delete;

 private:
  Int16& flag_;
};

}  // namespace korvinel
