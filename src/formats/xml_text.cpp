#include "formats/xml_text.h"

#include <utf8.h>

#include <iterator>

namespace quorval::xml {

void AppendEscaped(std::string& xml, std::string_view text) {
  std::string valid;
  if (!utf8::is_valid(text.begin(), text.end())) {
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
    text = valid;
  }
  for (char c : text) {
    switch (c) {
      case '<':
        xml += "&lt;";
        break;
      case '>':
        xml += "&gt;";
        break;
      case '&':
        xml += "&amp;";
        break;
      case '"':
        xml += "&quot;";
        break;
      default:
        xml += c;
    }
  }
}

}  // namespace quorval::xml
