#include "core/form.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "core/conversion.h"

namespace quorval {
namespace {

bool MeetsDemand(const Form& form, const Field& field) {
  try {
    return form.Meets(field);
  } catch (const Fault&) {
    return false;
  }
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view CaptionOf(const Form& form, const Field& field) {
  const bool renamed = !field.renamed.key.empty() && form.Holds(field.renamed);
  return Trimmed(renamed ? field.other_caption : field.caption);
}

// The caption of the choice that a field stands beside.
std::string_view ChoiceBeside(const Form& form, const Field& field) {
  const Field* const choices = form.Find(field.beside.key);
  if (choices == nullptr) return {};
  const auto choice = std::ranges::find(choices->choices, field.beside.word, &Choice::word);
  return choice == choices->choices.end() ? std::string_view() : Trimmed(choice->caption);
}

// The last heading above a field in its group, or the group.
std::string_view Above(const Form& form, const Field& field) {
  std::string_view heading = field.group;
  for (const Field* other : form.fields()) {
    if (other->kind == FieldKind::kText && other->group == field.group && !other->heading.empty())
      heading = other->heading;
    if (other->key == field.key) break;
  }
  return Trimmed(heading);
}

std::string Joined(std::string_view first, std::string_view second) {
  const bool both = !first.empty() && !second.empty();
  return std::string(first) + (both ? " " : "") + std::string(second);
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

const std::string& Form::Read(const Field& field) const {
  listener_.last_read = field.key;
  return Text(field);
}

// The whole text of a field; what cannot be converted is noted and is a Fault.
template <class Convert>
auto Form::ReadWhole(const Field& field, Convert&& convert) const {
  const std::string& text = Read(field);
  try {
    return convert(text);
  } catch (const Fault& fault) {
    Note(field, IsNumber(text) ? ", which is too large"
                : text.empty() ? ""
                               : ", which is no number");
    throw Fault{fault.kind, listener_.notices.has_value()};
  }
}

Real Form::LeadingNumber(const Field& field) const {
  const Real number = ReadWhole(field, [](const std::string& text) {
    const Real leading = quorval::LeadingNumber(text);
    static_cast<void>(Single(leading));
    return leading;
  });
  const std::string& text = Text(field);
  if (IsNumber(text)) return number;
  const bool in_part = text.empty() || StartsWithNumber(text);
  Note(field, (in_part ? " and was read as " : ", which is no number, and was read as ") +
                  ShortestText(number));
  return number;
}

Real Form::TextAsNumber(const Field& field) const { return ReadWhole(field, ToNumber); }

Single Form::TextAsNumber32(const Field& field) const {
  return ReadWhole(field, [](const std::string& text) { return Single(ToNumber(text)); });
}

int Form::TextAsInt16(const Field& field) const {
  const int number = ReadWhole(field, ToInt16);
  if (number != ToNumber(Text(field))) Note(field, " and was read as " + std::to_string(number));
  return number;
}

bool Form::HoldsNumber(const Field& field) const {
  const std::string& text = Read(field);
  if (IsNumber(text)) return true;
  Note(field, text.empty() ? "" : ", which is no number");
  return false;
}

Real Form::ReadAsDemanded(const Field& field) const {
  switch (field.demand.reading) {
    case Reading::kLeadingNumber:
      return LeadingNumber(field);
    case Reading::kLeadingNumber32:
      return LeadingNumber32(field);
    case Reading::kTextAsNumber32:
      return TextAsNumber32(field);
    case Reading::kTextAsInt16:
      return TextAsInt16(field);
    case Reading::kAnyText:
      break;
  }
  throw std::logic_error("nothing is demanded of " + std::string(field.key));
}

bool Form::Meets(const Field& field) const {
  const Demand& demand = field.demand;
  if (demand.exempt == Demand::Exempt::kBlank && Blank(field)) return true;
  if (demand.exempt == Demand::Exempt::kNoNumber && !HoldsNumber(field)) return true;
  const double number = Raw(ReadAsDemanded(field));
  return number > demand.above && number >= demand.least && number <= demand.most;
}

Form::Listening::Listening(const Form& form, Notices& notices)
    : form_(form), before_(form.listener_.notices) {
  form.listener_.notices = notices;
  form.listener_.last_read = form.listener_.last_noted = {};
}

Form::Listening::~Listening() { form_.listener_.notices = before_; }

void Form::Note(const Field& field, std::string_view outcome) const {
  listener_.last_noted = field.key;
  if (!listener_.notices) return;
  const std::string& text = Text(field);
  quorval::Note(
      listener_.notices->get(),
      {"field", "the field \"" + NameOf(field) + "\" " +
                    (text.empty() ? "is empty" : "holds \"" + text + "\"") + std::string(outcome)});
}

// The caption as it is shown, and before it what tells the field from others of that caption.
std::string Form::NameOf(const Field& field) const {
  using Qualifier = std::string_view (*)(const Form&, const Field&);
  constexpr Qualifier kQualifiers[] = {[](const Form&, const Field&) { return std::string_view(); },
                                       ChoiceBeside, Above};
  const Field& shown = *Find(field.key);
  std::string name;
  for (const Qualifier qualifier : kQualifiers) {
    const auto named = [&](const Field* one) {
      return Joined(qualifier(*this, *one), CaptionOf(*this, *one));
    };
    const std::string longer = named(&shown);
    if (longer == name) continue;
    name = longer;
    const auto alike = [&](const Field* one) {
      return one->kind == FieldKind::kText && named(one) == name;
    };
    if (std::ranges::count_if(fields_, alike) == 1) return name;
  }
  return Joined(name, "(" + std::string(field.key) + ")");
}

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

std::string_view Form::WordsOfBroken(const Rule& rule) const {
  if (rule.broken != nullptr && rule.broken(*this)) return rule.refusal;
  for (const Field* named : rule.Fields()) {
    const Field* const field = Find(named->key);
    if (field == nullptr || !Holds(field->shown) || !Holds(field->enabled)) continue;
    if (rule.asks == Rule::Asks::kFilled) {
      if (Blank(*field)) return field->demand.refusal_if_blank;
    } else if (!MeetsDemand(*this, *field)) {
      return field->demand.refusal;
    }
  }
  return {};
}

std::string_view Form::BrokenRule(Notices& notices) const {
  for (const Rule& rule : dialog_->rules) {
    Notices readings;
    const Listening listening(*this, readings);
    const std::string_view words = WordsOfBroken(rule);
    if (words.empty()) continue;
    // A rule looks no further than the field that breaks it.
    const Field* const culprit = Find(listener_.last_read);
    if (culprit != nullptr && culprit->key != listener_.last_noted) Note(*culprit, "");
    for (Notice& notice : readings) quorval::Note(notices, std::move(notice));
    return words;
  }
  return {};
}

}  // namespace quorval
