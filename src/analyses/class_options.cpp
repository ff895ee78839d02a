#include "analyses/class_options.h"

namespace quorval {

HistogramClasses ClassOptions::Of(const Description& values, Real N) const {
  if (form.Is(choice, "default")) return DefaultClasses(values, N);
  if (form.Blank(count)) {
    form.Note(count, ", so the default number of classes was drawn");
    return DefaultClasses(values, N);
  }
  const int k = form.TextAsInt16(count);
  if (k < 1) form.Note(count, ", so one class was drawn");
  return DivideRange(values, k);
}

}  // namespace quorval
