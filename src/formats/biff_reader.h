// Walking through the records of an Excel workbook's stream, without trust in their lengths.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "formats/biff.h"

namespace quorval::biff {

// The bytes of a record and of those that continue it.  Reading beyond the end throws a FileError.
class Body {
 public:
  explicit Body(std::vector<std::string_view> parts) : parts_(std::move(parts)) {}

  template <std::integral Whole>
  Whole Take() {
    std::make_unsigned_t<Whole> number = 0;
    for (std::size_t i = 0; i < sizeof(Whole); ++i)
      number = static_cast<std::make_unsigned_t<Whole>>(
          number | static_cast<std::make_unsigned_t<Whole>>(std::make_unsigned_t<Whole>{TakeByte()}
                                                            << (8 * i)));
    return static_cast<Whole>(number);
  }
  double TakeDouble() { return std::bit_cast<double>(Take<std::uint64_t>()); }
  void Skip(std::size_t count);
  bool AtEnd();

  // A text of so many characters of BIFF8, as UTF-8: its flag byte, the characters, and what
  // formats and annotates them.  Characters that go on in the next part, or only begin there, have
  // a flag byte there again.
  std::string TakeText(std::size_t count);
  // The same of the versions before: a byte a character.
  std::string TakeBytes(std::size_t count);

 private:
  std::uint8_t TakeByte();

  std::vector<std::string_view> parts_;
  std::size_t part_ = 0;
  std::size_t at_ = 0;
};

class Stream {
 public:
  explicit Stream(std::string_view bytes) : bytes_(bytes) {}

  // The next record; false at the end.  A record that is cut short is a FileError.
  bool Next();
  void GoTo(std::size_t place);
  Record record() const { return record_; }
  std::string_view bytes() const { return body_; }
  // The record's body; with it the walk goes past those that continue it.
  Body TakeBody();

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
  Record record_{};
  std::string_view body_;
};

}  // namespace quorval::biff
