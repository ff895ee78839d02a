#pragma once

#include "platform/platform.h"

namespace quorval {

// The hourglass for the length of a step.
class WaitPointer {
 public:
  explicit WaitPointer(Platform& platform) : platform_(platform) {
    platform_.ShowWaitPointer(true);
  }
  ~WaitPointer() { platform_.ShowWaitPointer(false); }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;

 private:
  Platform& platform_;
};

}  // namespace quorval
