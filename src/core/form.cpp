#include "core/form.h"

#include <stdexcept>

#include "core/conversion.h"

namespace quorval {
namespace {

bool IsBroken(const Rule& rule, const Form& form) {
  try {
    return rule.broken(form);
  } catch (const Fault&) {
    return true;
  }
}

}  // namespace

Form::Form(const Dialog& dialog) : dialog_(&dialog) { Take(dialog); }

void Form::Take(const Dialog& dialog) {
  for (const Field& field : dialog.fields) {
    if (field.opens != nullptr) Take(*field.opens);
    if (!field.Holds()) continue;
    fields_.push_back(&field);
    texts_.emplace_back(field.initial);
  }
}

std::size_t Form::IndexOf(std::string_view key) const {
  for (std::size_t i = 0; i < fields_.size(); ++i)
    if (fields_[i]->key == key) return i;
  throw std::out_of_range("no field " + std::string(key));
}

const std::string& Form::TextOf(std::string_view key) const { return texts_[IndexOf(key)]; }

Real Form::Number(const Field& field) const {
  const Real number = LeadingNumber(Text(field));
  static_cast<void>(Single(number));
  return number;
}

Single Form::WholeNumber32(const Field& field) const { return Single(ToNumber(Text(field))); }

int Form::Column(const Field& field) const { return ToInt16(Text(field)); }

bool Form::Holds(const When& when) const {
  return when.key.empty() || TextOf(when.key) == when.word;
}

bool Form::Holds(const Conditions& conditions) const {
  return std::ranges::all_of(conditions, [&](const When& when) { return Holds(when); });
}

const Field* Form::Find(std::string_view key) const {
  const auto found = std::ranges::find(fields_, key, &Field::key);
  return found == fields_.end() ? nullptr : *found;
}

void Form::Set(std::string_view key, std::string_view text) { texts_[IndexOf(key)] = text; }

void Form::Reset(const Dialog& dialog) {
  for (const Field& field : dialog.fields)
    if (field.Holds()) Set(field.key, field.initial);
}

void Form::TakeNested(const Form& other) {
  for (std::size_t i = 0; i < fields_.size(); ++i)
    if (std::ranges::find(dialog_->fields, fields_[i]->key, &Field::key) == dialog_->fields.end())
      texts_[i] = other.texts_[i];
}

const Rule* Form::BrokenRule() const {
  const auto broken =
      std::ranges::find_if(dialog_->rules, [&](const Rule& rule) { return IsBroken(rule, *this); });
  return broken == dialog_->rules.end() ? nullptr : &*broken;
}

}  // namespace quorval
