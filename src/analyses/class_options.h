// Options that set the number of a histogram's classes.
#pragma once

#include "core/form.h"
#include "stats/histogram.h"

namespace quorval {

// Two fields in a group of their own.
inline constexpr Choice kClassChoices[] = {{"default", "Default"}, {"user", "User specified:"}};
constexpr Field ClassChoiceField(std::string_view key, std::string_view group) {
  return {.key = key,
          .kind = FieldKind::kChoice,
          .group = group,
          .initial = "default",
          .choices = kClassChoices};
}
constexpr Field ClassCountField(std::string_view key, const Field& choice) {
  return {.key = key, .group = choice.group, .beside = {choice.key, "user"}};
}

// Such fields as a form holds them, read when a histogram is drawn: a word in them fails the
// drawing alone.
struct ClassOptions {
  const Form& form;
  const Field &choice, &count;

  // The classes of the number that the user specified; by default while the choice is "default" or
  // the number is empty.  A Fault of a word.
  HistogramClasses Of(const Description& values, Real N) const;
};

}  // namespace quorval
