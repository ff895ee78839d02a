#include "batch/settings.h"

#include <string_view>

#include "batch/commands.h"

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

void SetField(std::string_view setting, Form& form) {
  const std::size_t sign = setting.find('=');
  if (sign == setting.npos)
    throw Unusable("--set takes KEY=VALUE, not \"" + std::string(setting) + "\"");
  const std::string key(setting.substr(0, sign));
  const std::string value(setting.substr(sign + 1));
  const Field* const field = form.Find(key);
  if (field == nullptr)
    throw Unusable("there is no field \"" + key + "\"; \"describe\" names them");
  if (!HasWord(*field, value))
    throw Unusable("\"" + key + "\" cannot be \"" + value + "\", only one of: " + WordsOf(*field));
  form.Set(key, value);
}

}  // namespace

void AddSettings(CLI::App& command, std::vector<std::string>& settings) {
  command
      .add_option("--set", settings,
                  "Set the field KEY (see \"describe\"); a text may be empty. Repeatable")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
}

void SetFields(const std::vector<std::string>& settings, Form& form) {
  for (const std::string& setting : settings) SetField(setting, form);
}

}  // namespace quorval
