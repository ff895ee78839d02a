#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorval {

// What happened in a run or in a file command and no box tells: that a column ended at a gap, that
// a field was read in part, why a file was not saved.  It stands beside the boxes and changes none.
struct Notice {
  std::string_view kind;  // one word for programs, such as "gap"; its kinds stand in the manual
  std::string text;       // a sentence for people
  std::optional<int> column{}, row{};  // of the worksheet, where there is one

  bool operator==(const Notice&) const = default;
};

// In the order in which they arose.
using Notices = std::vector<Notice>;

// Adds a notice that does not stand there yet: a column that is read twice has one gap.
void Note(Notices& notices, Notice notice);

// "1 number", "2 numbers".
std::string Counted(std::size_t count, std::string_view noun);

}  // namespace quorval
