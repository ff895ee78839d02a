// The records of an Excel 97-2003 workbook (BIFF8): little-endian, a number and a length before
// each; as OpenOffice's and Microsoft's descriptions of the format ([MS-XLS]) give them.
#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorval::biff {

enum class Record : std::uint16_t {
  kFormula = 0x0006,
  kEnd = 0x000A,
  kDateMode = 0x0022,
  kPassword = 0x002F,
  kFont = 0x0031,
  kContinue = 0x003C,
  kWindow1 = 0x003D,
  kCodePage = 0x0042,
  kBoundSheet = 0x0085,
  kShortNumbers = 0x00BD,  // several cells of one row
  kFormattedText = 0x00D6,
  kExtendedFormat = 0x00E0,
  kStringTable = 0x00FC,
  kLabelString = 0x00FD,
  kDimensions = 0x0200,
  kNumber = 0x0203,
  kText = 0x0204,
  kBooleanOrError = 0x0205,
  kFormulaText = 0x0207,  // the text that the formula before it gave
  kWindow2 = 0x023E,
  kShortNumber = 0x027E,  // thirty bits of a number
  kStyle = 0x0293,
  kFormatRecord = 0x041E,
  kBegin = 0x0809,
};

inline constexpr std::size_t kLongestRecord = 8224;  // bytes behind the length
inline constexpr int kColumns = 256;
inline constexpr int kRows = 65536;
inline constexpr std::size_t kLongestText = 32767;  // characters of UTF-16

template <std::integral Whole>
void Append(std::string& bytes, Whole number) {
  for (std::size_t i = 0; i < sizeof(Whole); ++i)
    bytes += static_cast<char>(static_cast<std::make_unsigned_t<Whole>>(number) >> (8 * i));
}

inline void Append(std::string& bytes, double number) {
  Append(bytes, std::bit_cast<std::uint64_t>(number));
}

template <class... Parts>
std::string Bytes(Parts... parts) {
  std::string bytes;
  (Append(bytes, parts), ...);
  return bytes;
}

inline void AppendRecord(std::string& stream, Record record, std::string_view body) {
  Append(stream, static_cast<std::uint16_t>(record));
  Append(stream, static_cast<std::uint16_t>(body.size()));
  stream += body;
}

}  // namespace quorval::biff
