#include "analyses/difference/options.h"

#include "analyses/column_options.h"

namespace quorval::difference {
namespace {

// --- frmBASupplOpt

constexpr std::array<Choice, 4> kLimitKinds{
    {{"none", ""},
     {"a", "A: Constant limits +/-"},
     {"b", "B: Percentage limits +/-"},
     {"c",
      "C: Constant limits (from min to division point) followed by percentage limits (from "
      "division point to max)"}}};

constexpr Field kLimits{.key = "limits",
                        .kind = FieldKind::kChoice,
                        .heading = "(replaces estimated 95%-limits for differences on plots)",
                        .initial = "none",
                        .choices = kLimitKinds};

constexpr Field FieldOf(std::string_view limit_kind, std::string_view key,
                        std::string_view caption) {
  const When chosen{kLimits.key, limit_kind};
  return {.key = key, .caption = caption, .enabled = {chosen}, .beside = chosen};
}

constexpr std::string_view kConstantCaption = "Constant limits: +/- ";
constexpr std::string_view kPercentageCaption = "Percentage limits: +/-";

constexpr Field kAConstant = FieldOf("a", "a-constant", kConstantCaption);
constexpr Field kBPercent = FieldOf("b", "b-percent", kPercentageCaption);
constexpr Field kCConstant = FieldOf("c", "c-constant", kConstantCaption);
constexpr Field kCDivision = FieldOf("c", "c-division", "Division point:");
constexpr Field kCPercent = FieldOf("c", "c-percent", kPercentageCaption);

constexpr Field kSupplFields[] = {kLimits,    kAConstant, kBPercent,
                                  kCConstant, kCDivision, kCPercent};

constexpr Dialog frmBASupplOpt{
    .window = "frmBASupplOpt",
    .title = "Quorval     Difference plots - Suppl. options ",
    .heading = "Setting acceptance limits for agreement",
    .fields = kSupplFields,
};
static_assert(WellFormed(frmBASupplOpt));

// --- frmBAOpt

constexpr std::string_view kColumnsGroup = "Data Column No.";

constexpr std::array<Choice, 2> kScales{{{"fraction", "Relative difference as fraction"},
                                         {"percent", "Relative difference as percentage"}}};
constexpr Field kScale{.key = "scale",
                       .kind = FieldKind::kChoice,
                       .group = "Rel. Diff. Plot (Default)",
                       .initial = "fraction",
                       .choices = kScales};
constexpr Field kOutlierLimit{.key = "outlier-limit",
                              .caption = "Specify number of standard deviations as outlier limit:",
                              .initial = "4",
                              .demand = kPositiveLimit};
constexpr Field kShowData{.key = "show-data",
                          .kind = FieldKind::kCheck,
                          .caption = "Show x, y and differences",
                          .initial = "off"};
constexpr Field kSupplButton{.kind = FieldKind::kButton,
                             .caption = "Suppl. options",
                             .enabled = {kSingleMode},
                             .opens = &frmBASupplOpt};

constexpr Demand kColumn = kWorksheetColumn.RefusedWith("Incompatible column selection(s)");
constexpr Demand kOptionalColumn{.reading = kColumn.reading,
                                 .most = kColumn.most,
                                 .exempt = Demand::Exempt::kBlank,
                                 .refusal = kColumn.refusal};
constexpr Field ColumnField(Field field) {
  return InGroup(WithDemand(field, kColumn), kColumnsGroup);
}

constexpr Field kFields[] = {
    kMode,
    InGroup(Captioned(WithDemand(Text9, kOptionalColumn), "ID:"), kColumnsGroup),
    ColumnField(kFirstColumn),
    ColumnField(kSecondColumn),
    ColumnField(kThirdColumn),
    ColumnField(kFourthColumn),
    kScale,
    kOutlierLimit,
    kShowData,
    kSupplButton,
};

constexpr Rule kRules[] = {
    DemandsOf(Text9),
    DemandsOf(kFirstColumn, kSecondColumn),
    DemandsOf(kThirdColumn, kFourthColumn),
    DemandsOf(kOutlierLimit),
};

}  // namespace

constexpr Dialog frmBAOpt{
    .window = "frmBAOpt",
    .title = "Quorval     Difference plots   ",
    .fields = kFields,
    .rules = kRules,
};
static_assert(WellFormed(frmBAOpt));

Options ReadOptions(const Form& form) {
  return {.scale = {.percent = form.Is(kScale, "percent")},
          .outlier_limit = form.TextAsNumber32(kOutlierLimit),
          .show_data = form.On(kShowData)};
}

UserLimits ReadUserLimits(const Form& form) {
  const auto number = [&](const Field& field) { return form.TextAsNumber32(field); };
  if (form.Is(kLimits, "a")) return {.kind = LimitKind::kConstant, .constant = number(kAConstant)};
  if (form.Is(kLimits, "b")) return {.kind = LimitKind::kPercentage, .percent = number(kBPercent)};
  return {.kind = LimitKind::kConstantThenPercentage,
          .constant = number(kCConstant),
          .division = number(kCDivision),
          .percent = number(kCPercent)};
}

}  // namespace quorval::difference
