// Histograms of equally wide classes.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "core/form.h"
#include "core/plot.h"
#include "stats/primitives.h"

namespace quorval {

struct HistogramClasses {
  Real smallest;  // the lower bound of the first class
  Real h;         // class width
  int k = 1;      // number of classes
};

// As many classes as fit into the range at the width 2.15 s N^(-0.2), with N at least 1; the width
// is then the range over their number.  Fewer than one are one.  A Fault of values without spread.
HistogramClasses DefaultClasses(const Description& values, Real N);

// k classes over the range; fewer than one are one.
HistogramClasses DivideRange(const Description& values, int k);

// The number that the user specified: none while the choice is "default" or the field is empty, a
// Fault of a word.
std::optional<int> SpecifiedClasses(const Form& form, const Field& choice, const Field& count);

// Of the specified number, or by default.
HistogramClasses ChooseClasses(const Form& form, const Field& choice, const Field& count,
                               const Description& values, Real N);

// The fields of such a choice, in a group of their own.
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

// The number of values in each class: from its lower bound to below the next; the last has no upper
// bound.
std::vector<int> CountInClasses(const HistogramClasses& classes, Sample values);

// Bars at the classes' midpoints, as high as the counts divided by `divisor`: N for relative
// frequencies, 1 for numbers.
Series Bars(const HistogramClasses& classes, std::span<const int> counts, Real divisor);

}  // namespace quorval
