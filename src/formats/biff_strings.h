// The texts of an Excel 97-2003 workbook, each stored once.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorval::biff {

// UTF-16 of UTF-8; what is no UTF-8 becomes U+FFFD.
std::u16string Wide(std::string_view text);

// A flag byte and the characters: one byte each where all are Latin-1, else two.
std::string Characters(const std::u16string& text);

class StringTable {
 public:
  // The number of the text in the table.  Throws a FileError of one that is too long for a cell.
  std::uint32_t NumberOf(const std::string& text);
  // The table as a record and its continuations.
  void AppendTo(std::string& stream) const;

 private:
  std::unordered_map<std::string, std::uint32_t> numbers_;
  std::vector<std::u16string> texts_;
  std::uint32_t uses_ = 0;
};

}  // namespace quorval::biff
