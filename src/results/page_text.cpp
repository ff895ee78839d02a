#include "results/page_text.h"

namespace quorval {

PageText ReadPageCodes(std::string_view codes, int page) {
  PageText text;
  std::string* part = &text.left;
  for (std::size_t i = 0; i < codes.size(); ++i) {
    if (codes[i] != '/' || i + 1 == codes.size()) {
      *part += codes[i];
      continue;
    }
    switch (codes[++i]) {
      case 'l':
        part = &text.left;
        break;
      case 'c':
        part = &text.centre;
        break;
      case 'r':
        part = &text.right;
        break;
      case 'p':
        *part += std::to_string(page);
        break;
      case 'n':
        *part += '\n';
        break;
      default:
        *part += codes[i];
    }
  }
  return text;
}

}  // namespace quorval
