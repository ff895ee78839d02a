#include "formats/biff_reader.h"

#include <gtest/gtest.h>

#include "formats/file_error.h"

namespace quorval::biff {
namespace {

using namespace std::string_view_literals;

// A text's flag byte, what formats it and its characters, parted where a record may end.
TEST(Body, TakesATextOverTheEndsOfRecords) {
  struct Case {
    std::vector<std::string_view> parts;
    std::size_t count;
    std::string_view text;
  };
  const Case cases[] = {
      {{"\0abc"sv}, 3, "abc"},
      {{"\0ab"sv, "\0c"sv}, 3, "abc"},
      {{"\0ab"sv, "\1\xAC\x20"sv}, 3, "ab\xE2\x82\xAC"},
      {{"\0"sv, "\0abc"sv}, 3, "abc"},                    // no character before the end
      {{"\0"sv, "\1\xAC\x20z\0"sv}, 2, "\xE2\x82\xACz"},  // nor of the width told there
      {{"\10\1\0"sv, "\0abFMT2"sv}, 2, "ab"},             // behind what formats it
      {{"\1\x3D\xD8"sv, ""sv, "\1\x00\xDE"sv}, 2, "\xF0\x9F\x98\x80"},  // between half a pair
      {{"\0"sv, "\0"sv}, 0, ""},
  };
  for (const Case& one : cases) {
    Body body(one.parts);
    EXPECT_EQ(body.TakeText(one.count), one.text);
  }
  EXPECT_THROW(Body({"\0ab"sv, "\0"sv}).TakeText(3), FileError);
}

}  // namespace
}  // namespace quorval::biff
