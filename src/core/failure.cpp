#include "core/failure.h"

#include <string>

namespace quorval {
namespace {

std::string_view ReasonOf(Fault::Kind kind) {
  switch (kind) {
    case Fault::Kind::kDivisionByZero:
      return "a division by zero, as by the scatter of values that have none";
    case Fault::Kind::kOverflow:
      return "a number too large to compute with";
    case Fault::Kind::kBadArgument:
      return "a value for which a root, a logarithm or a distribution is not defined";
    case Fault::Kind::kNotANumber:
      return "a text that is no number";
    case Fault::Kind::kOutOfRange:
      return "a place beyond the data or beyond the results sheet";
    case Fault::Kind::kDecimals:
      break;
  }
  return "the number of decimal places, which is no whole number from 0 to 30";
}

}  // namespace

void NoteFault(Notices& notices, const Fault& fault) {
  if (fault.noted) return;
  Note(notices, {"arithmetic", "the computation ended at " + std::string(ReasonOf(fault.kind))});
}

}  // namespace quorval
