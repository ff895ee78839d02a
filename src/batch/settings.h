// The fields of an options dialog, set by key.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "core/form.h"

namespace quorval {

// --set KEY=VALUE, as often as wanted.
void AddSettings(CLI::App& command, std::vector<std::string>& settings);

// Throws as SetField() does.
void SetFields(const std::vector<std::string>& settings, Form& form);

}  // namespace quorval
