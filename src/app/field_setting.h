#pragma once

#include <string_view>

#include "core/form.h"

namespace quorval {

// Sets a field by "KEY=VALUE".  Throws a std::runtime_error for any other text, an unknown key, and
// a word that a choice or a check does not have.
void SetField(std::string_view setting, Form& form);

}  // namespace quorval
