#include "batch/settings.h"

#include "app/field_setting.h"

namespace quorval {

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
