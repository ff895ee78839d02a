// Reading the elements of an XML text, and the text to write into one.
#pragma once

#include <orcus/sax_parser.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "formats/file_error.h"

namespace quorval::xml {

// The attributes of an element, by their names without the prefix of a namespace.
class Attributes {
 public:
  // Empty where there is none.
  std::string_view operator[](std::string_view name) const {
    for (std::size_t i = 0; i < count_; ++i)
      if (all_[i].first == name) return all_[i].second;
    return {};
  }
  void Add(std::string_view name, std::string_view value) {
    if (count_ == all_.size()) all_.emplace_back();
    all_[count_].first = name;
    all_[count_++].second = value;
  }
  void Clear() { count_ = 0; }

 private:
  std::vector<std::pair<std::string, std::string>> all_;  // kept, so that their room is
  std::size_t count_ = 0;
};

// Passes on to `Reader`: Begin(name, attributes), End(name) and Characters(text), names without the
// prefix of their namespace.
template <class Reader>
class Handler : public orcus::sax_handler {
 public:
  explicit Handler(Reader& reader) : reader_(reader) {}
  void attribute(const orcus::sax::parser_attribute& attribute) {
    attributes_.Add(attribute.name, attribute.value);
  }
  void start_element(const orcus::sax::parser_element& element) {
    reader_.Begin(element.name, attributes_);
    attributes_.Clear();
    ++depth_;
  }
  void end_declaration(std::string_view) { attributes_.Clear(); }
  void end_element(const orcus::sax::parser_element& element) {
    reader_.End(element.name);
    whole_ = --depth_ == 0;
  }
  void characters(std::string_view text, bool) { reader_.Characters(text); }

  // Whether the root element has been closed.
  bool Whole() const { return whole_; }

 private:
  Reader& reader_;
  int depth_ = 0;
  bool whole_ = false;
  Attributes attributes_;
};

// Throws a FileError where the text refers by number to no character: the parser would not return.
void RefuseBadReferences(std::string_view text);

// Throws a FileError where the text is no XML; what stands behind its root element is not looked
// at.
template <class Reader>
void Parse(std::string text, Reader& reader) {
  RefuseBadReferences(text);
  // The parser may step over the end of a text that breaks off inside a tag, and does not find
  // back.  These close a value in either kind of quotes and are an error behind it, as in any other
  // place, well before that end.
  text += "\"'<<<<<<<<<<<<<<";
  Handler<Reader> handler(reader);
  try {
    orcus::sax_parser<Handler<Reader>> parser(text.data(), text.size(), handler);
    parser.parse();
  } catch (const FileError&) {
    throw;
  } catch (const std::exception&) {
    if (!handler.Whole()) throw FileError("the workbook is damaged");
  }
}

// As characters of an element or of an attribute in double quotes.
void AppendEscaped(std::string& xml, std::string_view text);

}  // namespace quorval::xml
