#include "core/analysis.h"

#include <algorithm>

namespace quorval {

const Procedure& ProcedureFor(const Analysis& analysis, const Form& form) {
  return *std::ranges::find_if(
      analysis.procedures, [&](const Procedure& procedure) { return form.Holds(procedure.when); });
}

Outcome Execute(const Procedure& procedure, Run& run) {
  try {
    procedure.run(run);
    return Outcome::kDone;
  } catch (const Fault&) {
    run.messages.Tell(procedure.failure.fault);
  } catch (const Failure&) {
    if (!procedure.failure.second.empty()) run.messages.Tell(procedure.failure.second);
  } catch (const Refusal&) {
    // All has been said.
  }
  run.plots.clear();
  return Outcome::kRefused;
}

}  // namespace quorval
