#pragma once

#include <string_view>

namespace quorval {

// How many digits a computed number shares with a published one, rounded down to tenths: the
// negative decimal logarithm of the relative error (McCullough BD. Am Stat 1998;52:358-66), of the
// absolute error where zero is published.  From 0 to the significant digits that are printed, 15 of
// a zero; all of them where the computed number rounds to the printed one.
double DigitsOfAgreement(std::string_view published, double computed);

}  // namespace quorval
