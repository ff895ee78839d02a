// Between texts and numbers.  One rule for cells, fields and files, whatever the locale: blanks
// around, a sign, digits with at most one decimal point, an exponent (e or E).  There is no
// thousands mark; a text that would need one is a word.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/real.h"

namespace quorval {

// Whether the whole text is a number; its size does not matter.
bool IsNumber(std::string_view text);

// The number that the whole text is.  A word, or no text at all, is a Fault, and so is a number
// beyond 64 bits.
Real ToNumber(std::string_view text);

// The number that a text starts with; 0 where there is none.
Real LeadingNumber(std::string_view text);
bool StartsWithNumber(std::string_view text);

// The whole text as a 16-bit integer, halves to even.  A Fault on a word and beyond 16 bits.
int ToInt16(std::string_view text);

// The decimals of a number cell: a whole number from 0 to 30, or a Fault of that kind.
std::uint8_t ToDecimals(std::string_view text);

Sample ToNumbers(std::span<const std::string> texts);

// The shortest digits that read back to the same double, without an exponent from 1e-5 to below
// 1e15.
std::string ShortestText(Real value);
// The same, but where 32 bits hold the number the shortest digits that read back to it in that
// width: what was typed as 11.874 and rounded to 32 bits is 11.874 again.
std::string NarrowestText(Real value);

// The value rounded to `decimals` digits behind the point; a zero has no sign.
std::string FixedText(Real value, int decimals);

// The nearest whole number, halves to even.
Real RoundHalfEven(Real value);

}  // namespace quorval
