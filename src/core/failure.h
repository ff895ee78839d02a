// How a run ends early.  Three things are thrown and nothing else: a Fault (not yet told), a
// Failure (a routine has told its own words) and a Refusal (the run has said all there is to say).
#pragma once

#include <optional>
#include <string_view>
#include <utility>

#include "core/fault.h"
#include "core/messages.h"
#include "core/notice.h"

namespace quorval {

struct Failure {
  std::optional<Fault> fault{};  // that the routine ended in
};
struct Refusal {};

// Ends the run with these words.
[[noreturn]] inline void Refuse(Messages& messages, std::string_view words) {
  messages.Tell(words);
  throw Refusal{};
}

// Ends a routine in words of its own.
[[noreturn]] inline void Fail(Messages& messages, std::string_view words) {
  messages.Tell(words);
  throw Failure{};
}

// Runs `work`.  A Fault in it is told as `words` and goes no further; what the work had stored by
// then stays.  True when the work came to its end.
template <class Work>
bool Attempt(Messages& messages, std::string_view words, Work&& work) {
  try {
    std::forward<Work>(work)();
    return true;
  } catch (const Fault&) {
    messages.Tell(words);
    return false;
  }
}

// As Attempt, but the failure goes up and ends the run.
template <class Work>
auto Insist(Messages& messages, std::string_view words, Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (const Fault& fault) {
    messages.Tell(words);
    throw Failure{fault};
  }
}

// Runs `work`.  A Failure in it, which has told its own words or leaves the telling to its caller,
// is told as `words` too and goes on up.
template <class Work>
auto TellAlso(Messages& messages, std::string_view words, Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (const Failure&) {
    messages.Tell(words);
    throw;
  }
}

// Notes what stopped the arithmetic, unless a notice tells of it.
void NoteFault(Notices& notices, const Fault& fault);

// Runs `work`.  The Fault that ends it is noted and goes on up, claimed by a routine or not.
template <class Work>
void NotingItsFault(Notices& notices, Work&& work) {
  try {
    std::forward<Work>(work)();
  } catch (const Fault& fault) {
    NoteFault(notices, fault);
    throw;
  } catch (const Failure& failure) {
    if (failure.fault) NoteFault(notices, *failure.fault);
    throw;
  }
}

}  // namespace quorval
