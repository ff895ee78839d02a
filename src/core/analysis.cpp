#include "core/analysis.h"

#include <algorithm>

namespace quorval {

const Procedure& ProcedureFor(const Analysis& analysis, const Form& form) {
  return *std::ranges::find_if(
      analysis.procedures, [&](const Procedure& procedure) { return form.Holds(procedure.when); });
}

std::string TitleOf(const Procedure& procedure, const Form& form) {
  std::string title(procedure.title);
  if (procedure.title_end != nullptr) title += procedure.title_end(form);
  return title;
}

Outcome Execute(const Procedure& procedure, Run& run) {
  const Form::Listening listening(run.form, run.notices);
  const Outcome outcome = Guard(run.messages, procedure.failure,
                                [&] { NotingItsFault(run.notices, [&] { procedure.run(run); }); });
  if (outcome == Outcome::kRefused) run.plots.clear();
  return outcome;
}

}  // namespace quorval
