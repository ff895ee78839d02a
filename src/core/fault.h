#pragma once

namespace quorval {

// Something could not be computed.  The user has not been told yet.
struct Fault {
  enum class Kind { kDivisionByZero, kOverflow, kBadArgument, kNotANumber, kOutOfRange, kDecimals };
  Kind kind;
  bool noted = false;  // a notice tells what it was
};

[[noreturn]] inline void Raise(Fault::Kind kind) { throw Fault{kind}; }

}  // namespace quorval
