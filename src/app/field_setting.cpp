#include "app/field_setting.h"

#include <stdexcept>
#include <string>

namespace quorval {
namespace {

std::string WordsOf(const Field& field) {
  if (field.kind == FieldKind::kCheck) return "on, off";
  std::string words;
  for (const Choice& choice : field.choices) {
    if (!words.empty()) words += ", ";
    words += choice.word;
  }
  return words;
}

}  // namespace

void SetField(std::string_view setting, Form& form) {
  const std::size_t sign = setting.find('=');
  if (sign == setting.npos)
    throw std::runtime_error("a setting is KEY=VALUE, not \"" + std::string(setting) + "\"");
  const std::string key(setting.substr(0, sign));
  const std::string value(setting.substr(sign + 1));
  const Field* const field = form.Find(key);
  if (field == nullptr)
    throw std::runtime_error("there is no field \"" + key + "\"; \"describe\" names them");
  if (!HasWord(*field, value))
    throw std::runtime_error("\"" + key + "\" cannot be \"" + value +
                             "\", only one of: " + WordsOf(*field));
  form.Set(key, value);
}

}  // namespace quorval
