// Text to write into XML.
#pragma once

#include <string>
#include <string_view>

namespace quorval::xml {

// As characters of an element or of an attribute in double quotes.
void AppendEscaped(std::string& xml, std::string_view text);

}  // namespace quorval::xml
