#include "app/text_block.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quorval {
namespace {

constexpr std::string_view kEnds = "\t\n\r";

std::string Quoted(std::string_view cell) {
  std::string quoted = "\"";
  for (char c : cell) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

bool NeedsQuotes(std::string_view cell) {
  return cell.starts_with('"') || cell.find_first_of(kEnds) != std::string_view::npos;
}

struct ReadCell {
  std::string text;
  std::size_t end;  // where its tab or new line stands
};

// A cell that starts at the quotation mark `at`; none when nothing closes it before a cell's end.
std::optional<ReadCell> ReadQuoted(std::string_view text, std::size_t at) {
  ReadCell cell;
  for (std::size_t i = at + 1; i < text.size(); ++i) {
    if (text[i] != '"') {
      cell.text += text[i];
    } else if (i + 1 < text.size() && text[i + 1] == '"') {
      cell.text += text[i++];
    } else {
      cell.end = i + 1;
      if (cell.end < text.size() && kEnds.find(text[cell.end]) == std::string_view::npos) break;
      return cell;
    }
  }
  return std::nullopt;
}

ReadCell ReadOne(std::string_view text, std::size_t at) {
  if (at < text.size() && text[at] == '"')
    if (auto cell = ReadQuoted(text, at)) return *cell;
  const std::size_t end = std::min(text.find_first_of(kEnds, at), text.size());
  return {std::string(text.substr(at, end - at)), end};
}

}  // namespace

std::string WriteTextBlock(const TextBlock& block) {
  std::string text;
  for (const auto& row : block) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      if (column > 0) text += '\t';
      text += NeedsQuotes(row[column]) ? Quoted(row[column]) : row[column];
    }
    text += '\n';
  }
  return text;
}

TextBlock ReadTextBlock(std::string_view text) {
  TextBlock block;
  bool new_row = true;
  for (std::size_t at = 0; at < text.size() || !new_row;) {
    ReadCell cell = ReadOne(text, at);
    if (new_row) block.emplace_back();
    block.back().push_back(std::move(cell.text));
    new_row = cell.end >= text.size() || text[cell.end] != '\t';
    at = cell.end + (text.substr(cell.end).starts_with("\r\n") ? 2 : 1);
  }
  return block;
}

}  // namespace quorval
