// The program's JSON: keys in the order in which they are documented, numbers with all their
// digits.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace quorval {

using Json = nlohmann::ordered_json;

// Grows when a key changes its meaning; a new key leaves it as it is.
inline constexpr int kJsonSchema = 1;

// Bytes that are not UTF-8 become the replacement character.
inline std::string JsonText(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace quorval
