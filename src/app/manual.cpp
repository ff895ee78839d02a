#include "app/manual.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <sstream>
#include <utility>

namespace quorval {
namespace {

constexpr std::size_t kExcerptLength = 120;
constexpr int kTitleWeight = 10;

std::string ReadText(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

int CountOf(std::string_view word, std::string_view text) {
  int count = 0;
  for (auto at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1))
    ++count;
  return count;
}

// "  - [Title](file.md)" or "## Heading".
std::optional<ManualEntry> ReadEntry(std::string_view line, bool under_heading) {
  if (line.starts_with("## ")) return ManualEntry{.title = std::string(line.substr(3))};
  const auto open = line.find('['), middle = line.find("](");
  if (open == std::string_view::npos || middle == std::string_view::npos || middle < open)
    return std::nullopt;
  const auto close = line.find(')', middle);
  if (close == std::string_view::npos) return std::nullopt;
  const auto indent = static_cast<int>(line.find_first_not_of(' '));
  return ManualEntry{.title = std::string(line.substr(open + 1, middle - open - 1)),
                     .file = std::string(line.substr(middle + 2, close - middle - 2)),
                     .depth = indent / 2 + (under_heading ? 1 : 0)};
}

std::string Excerpt(std::string_view text, const std::vector<std::string>& words) {
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) {
    const std::string lower = Lower(line);
    const auto holds = [&](const std::string& word) {
      return lower.find(word) != std::string::npos;
    };
    if (!std::ranges::any_of(words, holds)) continue;
    line.erase(0, std::min(line.find_first_not_of("#-*>| "), line.size()));
    if (line.size() <= kExcerptLength) return line;
    const auto end = line.rfind(' ', kExcerptLength);
    return line.substr(0, end == std::string::npos ? kExcerptLength : end) + " ...";
  }
  return {};
}

}  // namespace

Manual::Manual(const std::filesystem::path& folder) {
  std::istringstream lines(ReadText(folder / "contents.md"));
  bool under_heading = false;
  for (std::string line; std::getline(lines, line);) {
    auto entry = ReadEntry(line, under_heading);
    if (!entry) continue;
    if (entry->file.empty())
      under_heading = true;
    else
      entry->text = ReadText(folder / entry->file);
    entries_.push_back(std::move(*entry));
  }
}

bool Manual::TellsMessage(std::string_view box) const {
  const auto first = box.find_first_not_of(' ');
  if (first == std::string_view::npos) return false;
  const std::string quoted =
      '"' + std::string(box.substr(first, box.find_last_not_of(' ') - first + 1)) + '"';
  return std::ranges::any_of(entries_, [&](const ManualEntry& entry) {
    return entry.file == kMessagesPage && entry.text.find(quoted) != std::string::npos;
  });
}

std::vector<ManualHit> Manual::Search(std::string_view words) const {
  std::istringstream stream(Lower(words));
  const std::vector<std::string> wanted{std::istream_iterator<std::string>(stream), {}};
  std::vector<std::pair<int, ManualHit>> found;
  for (const ManualEntry& entry : entries_) {
    if (entry.file.empty() || wanted.empty()) continue;
    const std::string title = Lower(entry.title), text = Lower(entry.text);
    int weight = 0;
    const bool all = std::ranges::all_of(wanted, [&](const std::string& word) {
      const int count = kTitleWeight * CountOf(word, title) + CountOf(word, text);
      weight += count;
      return count > 0;
    });
    if (all) found.push_back({weight, {&entry, Excerpt(entry.text, wanted)}});
  }
  std::ranges::stable_sort(found, std::greater{}, [](const auto& hit) { return hit.first; });
  std::vector<ManualHit> hits;
  hits.reserve(found.size());
  for (auto& [weight, hit] : found) hits.push_back(std::move(hit));
  return hits;
}

}  // namespace quorval
