// An options dialog, described.  The desktop draws it, the batch program lists and sets its fields,
// and an analysis reads the values that a Form holds of it.
#pragma once

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <string_view>

namespace quorval {

class Form;
struct Dialog;

// "While the field `key` holds `word`."  The empty condition always holds.
struct When {
  std::string_view key{};
  std::string_view word{};
};

// All of these together.
using Conditions = std::array<When, 2>;

struct Choice {
  std::string_view word;       // what the batch program and the code say
  std::string_view caption;    // empty: no button; the field holds it while none is pressed
  std::string_view heading{};  // a line of text above the button
};

enum class FieldKind {
  kText,
  kChoice,  // radio buttons
  kCheck,   // "on" or "off"
  kNote,    // a text to read; it has no key and holds nothing
  kButton,  // opens another dialog over the same form
};

// How the text of a field is read.
enum class Reading {
  kAnyText,          // not as a number
  kLeadingNumber,    // the number that the text starts with, 0 where there is none
  kLeadingNumber32,  // the same, rounded to 32 bits
  kTextAsNumber32,   // the number that the whole text is, rounded to 32 bits
  kTextAsInt16,      // the whole text, rounded to an integer of 16 bits
};

// What OK demands of a text field: a number, read in this way, in this range.  A text that cannot
// be read so does not meet it.
struct Demand {
  static constexpr double kUnbounded = std::numeric_limits<double>::infinity();
  enum class Exempt { kNothing, kBlank, kNoNumber };

  Reading reading = Reading::kAnyText;
  double above = -kUnbounded, least = -kUnbounded, most = kUnbounded;
  Exempt exempt = Exempt::kNothing;     // texts that pass
  std::string_view refusal{};           // the words of the box
  std::string_view refusal_if_blank{};  // those of a rule that wants the field filled

  constexpr Demand Exempting(Exempt texts) const {
    Demand demand = *this;
    demand.exempt = texts;
    return demand;
  }
  constexpr Demand RefusedWith(std::string_view words) const {
    Demand demand = *this;
    demand.refusal = words;
    return demand;
  }
  constexpr Demand RefusedIfBlank(std::string_view words) const {
    Demand demand = *this;
    demand.refusal_if_blank = words;
    return demand;
  }
};

struct Field {
  std::string_view key{};
  FieldKind kind = FieldKind::kText;
  std::string_view group{};    // fields of one group that follow one another share a frame
  std::string_view heading{};  // a line of text above the field
  std::string_view caption{};
  std::string_view initial{};
  std::span<const Choice> choices{};
  Conditions shown{};    // the field and its caption are hidden otherwise
  Conditions enabled{};  // the field is grey otherwise
  When renamed{};        // `other_caption` stands in the caption's place then
  std::string_view other_caption{};
  When beside{};                  // a text field on the line of this choice of another field
  const Dialog* opens = nullptr;  // what a button opens
  Demand demand{};

  constexpr bool Holds() const { return kind != FieldKind::kNote && kind != FieldKind::kButton; }
};

// What OK looks at in one go: the dialog's fields of these keys, as far as they are shown and not
// grey; or the form as a whole, where fields have to suit each other.
struct Rule {
  enum class Asks { kDemandsMet, kFilled };

  std::array<const Field*, 5> named{};
  std::size_t count = 0;  // of them
  Asks asks = Asks::kDemandsMet;
  bool (*broken)(const Form&) = nullptr;
  std::string_view refusal{};  // where the form breaks it; a field has words of its own

  constexpr std::span<const Field* const> Fields() const { return {named.data(), count}; }
};

template <class... Fields>
constexpr Rule DemandsOf(const Fields&... fields) {
  return {.named = {&fields...}, .count = sizeof...(fields)};
}

constexpr Rule Filled(const Field& field) {
  return {.named = {&field}, .count = 1, .asks = Rule::Asks::kFilled};
}

struct Dialog {
  std::string_view window;
  std::string_view title;
  std::string_view heading{};
  std::span<const Field> fields{};
  std::span<const Rule> rules{};  // looked at in order; the first that is broken is told
  std::string_view ok = "OK";
};

constexpr Field Captioned(Field field, std::string_view caption) {
  field.caption = caption;
  return field;
}

constexpr Field WithInitial(Field field, std::string_view initial) {
  field.initial = initial;
  return field;
}

constexpr Field InGroup(Field field, std::string_view group) {
  field.group = group;
  return field;
}

constexpr Field WithDemand(Field field, const Demand& demand) {
  field.demand = demand;
  return field;
}

constexpr Field RefusedWith(Field field, std::string_view refusal) {
  field.demand = field.demand.RefusedWith(refusal);
  return field;
}

constexpr bool HasWord(const Field& field, std::string_view word) {
  if (field.kind == FieldKind::kText) return true;
  if (field.kind == FieldKind::kCheck) return word == "on" || word == "off";
  return std::ranges::any_of(field.choices,
                             [&](const Choice& choice) { return choice.word == word; });
}

// Whether OK can look at each field of a rule, and has words to refuse it with.
constexpr bool WellFormed(const Rule& rule, std::span<const Field> fields) {
  if (rule.broken != nullptr) return !rule.refusal.empty();
  return std::ranges::all_of(rule.Fields(), [&](const Field* named) {
    return std::ranges::any_of(fields, [&](const Field& field) {
      const Demand& demand = field.demand;
      if (field.key != named->key) return false;
      return rule.asks == Rule::Asks::kFilled
                 ? !demand.refusal_if_blank.empty()
                 : demand.reading != Reading::kAnyText && !demand.refusal.empty();
    });
  });
}

// Whether each key stands once, each default is a choice, each condition can come true, and each
// rule is told.
constexpr bool WellFormed(const Dialog& dialog) {
  const auto fields = dialog.fields;
  const auto possible = [&](const When& when) {
    return when.key.empty() || std::ranges::any_of(fields, [&](const Field& field) {
             return field.key == when.key && HasWord(field, when.word);
           });
  };
  for (const Field& field : fields) {
    if (field.Holds()) {
      const auto same_key = [&](const Field& other) { return other.key == field.key; };
      if (field.key.empty() || std::ranges::count_if(fields, same_key) != 1) return false;
      if (!HasWord(field, field.initial)) return false;
    }
    if (field.kind == FieldKind::kButton && field.opens == nullptr) return false;
    if (!std::ranges::all_of(field.shown, possible)) return false;
    if (!std::ranges::all_of(field.enabled, possible)) return false;
    if (!possible(field.renamed) || !possible(field.beside)) return false;
  }
  return std::ranges::all_of(dialog.rules,
                             [&](const Rule& rule) { return WellFormed(rule, fields); });
}

}  // namespace quorval
