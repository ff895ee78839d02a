#pragma once

namespace quorval {

// Something could not be computed.  The user has not been told yet.
struct Fault {
  enum class Kind { kDivisionByZero, kOverflow, kBadArgument, kNotANumber, kOutOfRange };
  Kind kind;
};

[[noreturn]] inline void Raise(Fault::Kind kind) { throw Fault{kind}; }

}  // namespace quorval
