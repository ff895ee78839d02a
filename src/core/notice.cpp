#include "core/notice.h"

#include <algorithm>
#include <utility>

namespace quorval {

void Note(Notices& notices, Notice notice) {
  if (std::ranges::find(notices, notice) == notices.end()) notices.push_back(std::move(notice));
}

std::string Counted(std::size_t count, std::string_view noun) {
  return std::to_string(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

}  // namespace quorval
