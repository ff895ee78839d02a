#include "formats/biff_reader.h"

#include <utf8.h>

#include <algorithm>
#include <iterator>

#include "formats/file_error.h"

namespace quorval::biff {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

[[noreturn]] void Damaged() { throw FileError("the workbook is damaged"); }

std::uint16_t WordAt(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[at]) |
                                    static_cast<unsigned char>(bytes[at + 1]) << 8);
}

// Half a pair becomes U+FFFD.
std::string Narrow(const std::u16string& wide) {
  std::string text;
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char32_t character = wide[i];
    const bool first = character >= 0xD800 && character < 0xDC00;
    if (first && i + 1 < wide.size() && wide[i + 1] >= 0xDC00 && wide[i + 1] < 0xE000) {
      character = 0x10000 + ((character - 0xD800) << 10) + (wide[++i] - 0xDC00u);
    } else if (character >= 0xD800 && character < 0xE000) {
      character = kReplacement;
    }
    utf8::append(character, std::back_inserter(text));
  }
  return text;
}

}  // namespace

bool Body::AtEnd() {
  while (part_ < parts_.size() && at_ == parts_[part_].size()) {
    ++part_;
    at_ = 0;
  }
  return part_ == parts_.size();
}

std::uint8_t Body::TakeByte() {
  if (AtEnd()) Damaged();
  return static_cast<std::uint8_t>(parts_[part_][at_++]);
}

void Body::Skip(std::size_t count) {
  while (count > 0) {
    if (AtEnd()) Damaged();
    const std::size_t step = std::min(count, parts_[part_].size() - at_);
    at_ += step;
    count -= step;
  }
}

std::string Body::TakeText(std::size_t count) {
  constexpr std::uint8_t kWide = 1, kAnnotated = 4, kFormatted = 8;
  const auto flags = Take<std::uint8_t>();
  bool wide = (flags & kWide) != 0;
  const std::size_t formats = (flags & kFormatted) != 0 ? Take<std::uint16_t>() : 0u;
  const std::size_t annotation = (flags & kAnnotated) != 0 ? Take<std::uint32_t>() : 0u;
  std::u16string text;
  while (text.size() < count) {
    const std::size_t part = part_;
    if (AtEnd()) Damaged();
    if (part_ != part) wide = (Take<std::uint8_t>() & kWide) != 0;
    text += static_cast<char16_t>(wide ? Take<std::uint16_t>() : Take<std::uint8_t>());
  }
  Skip(4 * formats + annotation);
  return Narrow(text);
}

std::string Body::TakeBytes(std::size_t count) {
  std::u16string text;
  while (text.size() < count) text += static_cast<char16_t>(TakeByte());
  return Narrow(text);
}

bool Stream::Next() {
  constexpr std::size_t kHead = 4;
  if (at_ == bytes_.size()) return false;
  if (bytes_.size() - at_ < kHead) Damaged();
  const std::size_t length = WordAt(bytes_, at_ + 2);
  if (bytes_.size() - at_ - kHead < length) Damaged();
  record_ = static_cast<Record>(WordAt(bytes_, at_));
  body_ = bytes_.substr(at_ + kHead, length);
  at_ += kHead + length;
  return true;
}

void Stream::GoTo(std::size_t place) {
  if (place >= bytes_.size()) Damaged();
  at_ = place;
}

Body Stream::TakeBody() {
  std::vector<std::string_view> parts{body_};
  while (bytes_.size() - at_ >= 4 && WordAt(bytes_, at_) == static_cast<int>(Record::kContinue)) {
    Next();
    parts.push_back(body_);
  }
  return Body(std::move(parts));
}

}  // namespace quorval::biff
