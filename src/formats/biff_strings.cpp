#include "formats/biff_strings.h"

#include <utf8.h>

#include <algorithm>
#include <iterator>

#include "formats/biff.h"
#include "formats/file_error.h"

namespace quorval::biff {
namespace {

bool IsLatin(std::u16string_view text) {
  return std::ranges::all_of(text, [](char16_t c) { return c <= 0xFF; });
}

void AppendCharacter(std::string& bytes, char16_t character, bool latin) {
  bytes += static_cast<char>(character);
  if (!latin) bytes += static_cast<char>(character >> 8);
}

// Fills records to their greatest length.  A text may go on in the next record, which then begins
// with its flag byte again.  The text's length, its flag byte and its first character stay
// together: programs differ in what they expect where all characters stand behind a record's end.
class Continued {
 public:
  explicit Continued(std::string& stream) : stream_(stream) {}

  void Add(std::string_view bytes) {
    if (body_.size() + bytes.size() > kLongestRecord) Flush();
    body_ += bytes;
  }

  void AddText(const std::u16string& text) {
    const bool latin = IsLatin(text);
    const char flag = latin ? '\0' : '\1';
    std::string head = Bytes(static_cast<std::uint16_t>(text.size())) + flag;
    if (!text.empty()) AppendCharacter(head, text.front(), latin);
    Add(head);
    for (std::size_t i = 1; i < text.size(); ++i) {
      if (body_.size() + (latin ? 1 : 2) > kLongestRecord) {
        Flush();
        body_ += flag;
      }
      AppendCharacter(body_, text[i], latin);
    }
  }

  void Flush() {
    AppendRecord(stream_, record_, body_);
    record_ = Record::kContinue;
    body_.clear();
  }

 private:
  std::string& stream_;
  Record record_ = Record::kStringTable;
  std::string body_;
};

}  // namespace

std::u16string Wide(std::string_view text) {
  std::string valid;
  utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
  return utf8::utf8to16(valid);
}

std::string Characters(const std::u16string& text) {
  const bool latin = IsLatin(text);
  std::string bytes(1, latin ? '\0' : '\1');
  for (char16_t character : text) AppendCharacter(bytes, character, latin);
  return bytes;
}

std::uint32_t StringTable::NumberOf(const std::string& text) {
  ++uses_;
  const auto [entry, is_new] = numbers_.try_emplace(text, texts_.size());
  if (is_new) {
    texts_.push_back(Wide(text));
    if (texts_.back().size() > kLongestText)
      throw FileError("a text is too long for a cell of this format");
  }
  return entry->second;
}

void StringTable::AppendTo(std::string& stream) const {
  Continued table(stream);
  table.Add(Bytes(uses_, static_cast<std::uint32_t>(texts_.size())));
  for (const std::u16string& text : texts_) table.AddText(text);
  table.Flush();
}

}  // namespace quorval::biff
