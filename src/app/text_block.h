// Blocks of cells as text: how spreadsheet programs exchange them over the clipboard.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorval {

// Rows of cells, from the top left.
using TextBlock = std::vector<std::vector<std::string>>;

// Cells parted by tabs, each row ended by a new line.  A cell that holds either, or starts with a
// quotation mark, stands in quotation marks with its own ones doubled.
std::string WriteTextBlock(const TextBlock& block);

// The same back.  Rows may end with "\n", "\r\n" or "\r", the last one also with nothing; a
// quotation mark that nothing closes is a character like any other.
TextBlock ReadTextBlock(std::string_view text);

}  // namespace quorval
