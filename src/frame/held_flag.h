#pragma once

#include "values/int16.h"

namespace korvinel {

/// Holds a flag of the record at 1 for as long as it lives, so that it falls however the operation is left.
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
