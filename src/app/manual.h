// The manual: Markdown pages in a folder, and the list of them in its contents.md.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quorval {

// A line of the contents: a page, or a heading over those that follow (without a file).
struct ManualEntry {
  std::string title;
  std::string file{};
  int depth = 0;       // 0 outermost
  std::string text{};  // of the page
};

struct ManualHit {
  const ManualEntry* entry;
  std::string excerpt;  // the first line that holds one of the words
};

// The page that tells every message box, each in double quotes.
inline constexpr std::string_view kMessagesPage = "messages.md";

class Manual {
 public:
  // Empty where the folder has no contents.md.
  explicit Manual(const std::filesystem::path& folder);

  const std::vector<ManualEntry>& entries() const { return entries_; }
  // The pages that hold every one of the words, whatever their case; the most telling first.
  std::vector<ManualHit> Search(std::string_view words) const;
  // Whether the page of messages tells of a box; blanks around its text do not count.
  bool TellsMessage(std::string_view box) const;

 private:
  std::vector<ManualEntry> entries_;
};

}  // namespace quorval
