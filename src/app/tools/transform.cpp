// Replaces the numbers of one column by a function of them.
#include "app/tools/tool.h"
#include "core/intake.h"

namespace quorval {
namespace {

constexpr Choice kTransforms[] = {
    {"1", "Logarithmic (natural)"},
    {"2", "Logarithmic plus constant:"},
    {"3", "Square root"},
    {"4", "Power with exponent:   (Box and Cox)"},
    {"5", "Exponential with constant:  (Manly) "},
    {"6", "Constant (y= c * x):"},
    {"7", "Linear (y= a + b * x);  a ="},
};

constexpr std::string_view kGroup = " Select Transformation:";

constexpr Field kColumn = InGroup(Text1, "Select Data Column:");
constexpr Field kTransform{.key = "transform",
                           .kind = FieldKind::kChoice,
                           .group = kGroup,
                           .initial = "1",
                           .choices = kTransforms};

constexpr Field ConstantOf(std::string_view transform, std::string_view key,
                           std::string_view caption = {}) {
  const When chosen{"transform", transform};
  return {.key = key, .group = kGroup, .caption = caption, .enabled = {chosen}, .beside = chosen};
}

constexpr Field kConstant2 = ConstantOf("2", "constant2");
constexpr Field kExponent = ConstantOf("4", "exponent");
constexpr Field kConstant5 = ConstantOf("5", "constant5");
constexpr Field kFactor = ConstantOf("6", "factor");
constexpr Field kIntercept = ConstantOf("7", "intercept");
constexpr Field kSlope = ConstantOf("7", "slope", "b =");
constexpr Field kFields[] = {kColumn,    kTransform, kConstant2, kExponent,
                             kConstant5, kFactor,    kIntercept, kSlope};

constexpr Dialog frmTransform{
    .window = "frmTransform", .title = "Transform Data", .fields = kFields};
static_assert(WellFormed(frmTransform));

Real ConstantIn(const ToolRun& run, const Field& field) { return run.form.TextAsNumber(field); }

// A refusal that a second box follows.
[[noreturn]] void Fail(const ToolRun& run, std::string_view words) {
  run.messages.Tell(words);
  throw Failure{};
}

void RefuseNonPositive(const ToolRun& run, const Sample& x, std::string_view words) {
  if (std::ranges::any_of(x, [](Real value) { return value <= 0; })) Fail(run, words);
}

template <class Function>
Sample Each(Sample x, Function y) {
  for (Real& value : x) value = y(value);
  return x;
}

Sample Shifted(const Sample& x, Real c) {
  return Each(x, [&](Real value) { return value + c; });
}

Sample PowerTransformed(const Sample& x, Real p) {
  if (p == 0) return Each(x, Log);
  return Each(x, [&](Real value) { return (Pow(value, p) - 1) / p; });
}

Sample Transformed(const ToolRun& run, const Sample& x) {
  switch (run.form.Text(kTransform).front()) {
    case '1':
      RefuseNonPositive(run, x, "Non-positive value(s): No log-transformation");
      return Each(x, Log);
    case '2': {
      const Real c = run.form.Blank(kConstant2) ? Real(0) : ConstantIn(run, kConstant2);
      const Sample shifted = Shifted(x, c);
      RefuseNonPositive(run, shifted, "Non-positive value(s): No log(x+c)-transformation");
      return Each(shifted, Log);
    }
    case '3':
      RefuseNonPositive(run, x, "Non-positive value(s): No transformation");
      return Each(x, Sqrt);
    case '4': {
      const Real p = ConstantIn(run, kExponent);
      RefuseNonPositive(run, x, "Non-positive value(s): No power-transformation");
      return PowerTransformed(x, p);
    }
    case '5': {
      const Real c = ConstantIn(run, kConstant5);
      if (c == 0)
        Fail(run, "The transformation constant cannot be zero: No exponential transformation");
      return Each(x, [&](Real value) { return (Exp(c * value) - 1) / c; });
    }
    case '6': {
      const Real c = ConstantIn(run, kFactor);
      return Each(x, [&](Real value) { return c * value; });
    }
    default: {
      const Real a = ConstantIn(run, kIntercept);
      const Real b = ConstantIn(run, kSlope);
      return Each(x, [&](Real value) { return a + b * value; });
    }
  }
}

void RunTransform(ToolRun& run) {
  const Column column =
      ReadColumn(run.messages, run.notices, run.worksheet, run.form.TextAsInt16(Text1));
  if (column.values.empty()) run.Refuse(" N < 1: No transformation ");
  const Sample y = Transformed(run, column.Numbers(run.notices));
  for (int row = 1; Real value : y) run.worksheet.SetValue(column.number, row++, value);
}

}  // namespace

constinit const Tool kTransformTool{
    .id = "transform",
    .command = Command::kTransform,
    .dialog = &frmTransform,
    .failure = {.fault = "Error", .second = "Error"},
    .run = RunTransform,
    .manual = "data-tools.md",
};

}  // namespace quorval
