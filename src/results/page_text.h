#pragma once

#include <string>
#include <string_view>

namespace quorval {

// A printed header or footer: what stands left, in the middle and on the right.
struct PageText {
  std::string left{}, centre{}, right{};
};

// Reads the codes of a header or footer: "/l", "/c" and "/r" place what follows, "/p" is the page
// number, "/n" a new line and "//" a slash.
PageText ReadPageCodes(std::string_view codes, int page);

}  // namespace quorval
