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

// The classes of the number that the user specified; by default while the choice is "default" or
// the number is empty.  A Fault of a word.
HistogramClasses ChooseClasses(const Form& form, const Field& choice, const Field& count,
                               const Description& values, Real N);

// The same for a plot that reads its fields only when it is drawn: what cannot be read is then the
// plot's failure.
struct ClassOptions {
  const Form& form;
  const Field& choice;
  const Field& count;

  HistogramClasses For(const Description& values, Real N) const {
    return ChooseClasses(form, choice, count, values, N);
  }
};

}  // namespace quorval
