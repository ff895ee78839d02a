// An options dialog, described.  The desktop draws it, the batch program lists and sets its fields,
// and an analysis reads the values that a Form holds of it.
#pragma once

#include <algorithm>
#include <array>
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

  constexpr bool Holds() const { return kind != FieldKind::kNote && kind != FieldKind::kButton; }
};

// What OK refuses.  A number beyond 32 bits in a field that the rule reads breaks it too.
struct Rule {
  bool (*broken)(const Form&);
  std::string_view words;
};

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

constexpr bool HasWord(const Field& field, std::string_view word) {
  if (field.kind == FieldKind::kText) return true;
  if (field.kind == FieldKind::kCheck) return word == "on" || word == "off";
  return std::ranges::any_of(field.choices,
                             [&](const Choice& choice) { return choice.word == word; });
}

// Whether each key stands once, each default is a choice, and each condition can come true.
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
  return true;
}

}  // namespace quorval
