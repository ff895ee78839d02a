// How a run ends early.  Three things are thrown and nothing else: a Fault (not yet told), a
// Failure (a routine has told its own words) and a Refusal (the run has said all there is to say).
#pragma once

#include <string_view>
#include <utility>

#include "core/fault.h"
#include "core/messages.h"

namespace quorval {

struct Failure {};
struct Refusal {};

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
  } catch (const Fault&) {
    messages.Tell(words);
    throw Failure{};
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

}  // namespace quorval
