#pragma once

#include <string_view>

namespace quorval {

// A box that shows a text without a title.  All that a routine knows of the user.
class Messages {
 public:
  virtual ~Messages() = default;
  virtual void Tell(std::string_view text) = 0;
};

}  // namespace quorval
