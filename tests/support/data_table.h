// Tables of cases in tests/data: a case a line, its fields parted by " | ", the words of a field by
// blanks.  A word with blanks stands in quotes.  Lines with # are comments.
#pragma once

#include <fstream>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

#include "support/data_folder.h"
#include "support/transcript.h"

namespace quorval::test {

using Words = std::vector<std::string>;

struct TableLine {
  std::string section;        // the last [SECTION] above
  std::string name;           // the first field, as it stands
  std::vector<Words> fields;  // the others

  const Words& operator[](std::size_t field) const {
    static const Words kNone;
    return field < fields.size() ? fields[field] : kNone;
  }
};

inline Words WordsOf(const std::string& text) {
  Words words;
  std::istringstream in(text);
  for (std::string word; in >> std::quoted(word);) words.push_back(word);
  return words;
}

inline std::vector<TableLine> ReadTable(const std::string& file_name) {
  std::vector<TableLine> lines;
  std::string section;
  std::ifstream file(DataFile(file_name));
  for (std::string text; std::getline(file, text);) {
    if (text.empty() || text[0] == '#') continue;
    if (text[0] == '[') {
      section = text.substr(1, text.size() - 2);
      continue;
    }
    const std::size_t end = text.find(" |");
    TableLine& line = lines.emplace_back(TableLine{section, text.substr(0, end), {{}}});
    for (const std::string& word : WordsOf(text.substr(std::min(text.size(), end + 2))))
      if (word == "|")
        line.fields.emplace_back();
      else
        line.fields.back().push_back(word);
  }
  return lines;
}

// KEY=VALUE...
inline Settings SettingsOf(const Words& words) {
  Settings settings;
  for (const std::string& word : words)
    settings.emplace_back(word.substr(0, word.find('=')), word.substr(word.find('=') + 1));
  return settings;
}

// Columns parted by "/"; 1..4 stands for 1 2 3 4, and 5*3 for 5 5 5.
inline Columns ColumnsOf(const Words& words) {
  Columns columns;
  if (!words.empty()) columns.emplace_back();
  for (const std::string& word : words) {
    if (const auto dots = word.find(".."); dots != std::string::npos) {
      for (int i = std::stoi(word); i <= std::stoi(word.substr(dots + 2)); ++i)
        columns.back().push_back(std::to_string(i));
    } else if (const auto star = word.find('*'); star != std::string::npos) {
      columns.back().resize(columns.back().size() + std::stoul(word.substr(star + 1)),
                            word.substr(0, star));
    } else if (word == "/") {
      columns.emplace_back();
    } else {
      columns.back().push_back(word);
    }
  }
  return columns;
}

}  // namespace quorval::test
