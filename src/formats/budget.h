// What a file may ask for while it is read, whoever made it: every reader takes from one budget,
// and refuses what does not fit before it is built.  A small file can ask for much: zip shrinks a
// thousandfold, and a cell, a text or a row can say that it stands for a million.
//
// A file of up to 10 MB is read within 2 s and 600 MB.  A full worksheet of 500 by 10000 cells fits
// in every format; where it takes more bytes to say so, the file is larger, and so is its budget.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace quorval {

// How much of something is left.
class Allowance {
 public:
  // The words follow "the file holds more than <most>".
  constexpr Allowance(std::uint64_t most, std::string_view what)
      : most_(most), left_(most), what_(what) {}

  // Throws a FileError where too little is left.
  void Take(std::uint64_t count = 1) {
    if (count > left_) Refuse();
    left_ -= count;
  }

 private:
  [[noreturn]] void Refuse() const;

  std::uint64_t most_, left_;
  std::string_view what_;
};

namespace limits {

inline constexpr std::uint64_t kSmallFile = 10'000'000;  // bytes; beyond it the budget grows

// A cell, written once or again; the longest results sheet holds so many.
inline constexpr std::uint64_t kCells = std::uint64_t{500} * 20002;
// Of a full worksheet: a cell has up to three elements and five attributes.
inline constexpr std::uint64_t kElements = 20'000'000;
inline constexpr std::uint64_t kAttributes = 30'000'000;
// In a workbook's table of them; one for each cell of a full worksheet.
inline constexpr std::uint64_t kSharedTexts = 5'000'000;
// Of a small file: bytes of all parts unpacked, and of the texts of all cells.
inline constexpr std::uint64_t kUnpacked = 256 << 20;
inline constexpr std::uint64_t kText = 96 << 20;
// Of any file.
inline constexpr std::uint64_t kMostUnpacked = std::uint64_t{1} << 30;
inline constexpr std::uint64_t kMostText = std::uint64_t{1} << 30;

inline constexpr std::size_t kLongestText = 1 << 20;  // bytes of one text of a table or workbook
inline constexpr int kNesting = 200;                  // elements within elements
inline constexpr std::size_t kAttributesOfOne = 500;
inline constexpr std::uint64_t kParts = 20'000;  // of an archive, and what is told of them

// Of a project file.
inline constexpr int kLongestValue = 64 << 20;  // bytes of one text or picture
inline constexpr std::size_t kLooks = 100'000;
inline constexpr std::size_t kPictures = 1000;

}  // namespace limits

struct Budget {
  // Of a file of so many bytes.
  explicit Budget(std::uint64_t file_size);
  // Throws a FileError where there is no such file, or it is a folder, a pipe or a device.
  explicit Budget(const std::filesystem::path& path);

  Allowance packed;  // bytes of the parts that are read; they do not lie over one another
  Allowance unpacked;
  Allowance parts{limits::kParts, " parts and sheets"};
  Allowance elements{limits::kElements, " elements of XML"};
  Allowance attributes{limits::kAttributes, " attributes of XML"};
  Allowance shared_texts{limits::kSharedTexts, " texts in a table"};
  Allowance cells{limits::kCells, " cells"};
  Allowance text;
};

[[noreturn]] void RefuseLongText();

// Adds to a text that a file hands out in pieces.  Throws a FileError of one that grows too long.
inline void AppendTo(std::string& text, std::string_view more) {
  if (more.size() > limits::kLongestText - text.size()) RefuseLongText();
  text += more;
}
inline void AppendTo(std::string& text, std::uint64_t count, char character) {
  if (count > limits::kLongestText - text.size()) RefuseLongText();
  text.append(count, character);
}

}  // namespace quorval
