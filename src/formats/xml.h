// Reading the elements of an XML text.
#pragma once

#include <deque>
#include <new>
#include <orcus/sax_parser.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "formats/budget.h"
#include "formats/file_error.h"

namespace quorval::xml {

// The attributes of an element, by their names without the prefix of a namespace.
class Attributes {
 public:
  // Empty where there is none.
  std::string_view operator[](std::string_view name) const {
    for (const auto& [known, value] : all_)
      if (known == name) return value;
    return {};
  }
  // A transient value is gone once this returns.
  void Add(std::string_view name, std::string_view value, bool transient);
  void Clear() {
    all_.clear();
    if (!kept_.empty()) kept_.clear();
  }

 private:
  std::vector<std::pair<std::string_view, std::string_view>> all_;
  std::deque<std::string> kept_;  // values that were transient
};

// Passes on to `Reader`: Begin(name, attributes), End(name) and Characters(text), names without the
// prefix of their namespace.
template <class Reader>
class Handler : public orcus::sax_handler {
 public:
  Handler(Reader& reader, Budget& budget) : reader_(reader), budget_(budget) {}
  void attribute(const orcus::sax::parser_attribute& attribute) {
    budget_.attributes.Take();
    attributes_.Add(attribute.name, attribute.value, attribute.transient);
  }
  void start_element(const orcus::sax::parser_element& element) {
    budget_.elements.Take();
    if (++depth_ > limits::kNesting) RefuseNesting();
    reader_.Begin(element.name, attributes_);
    attributes_.Clear();
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
  [[noreturn]] static void RefuseNesting() {
    throw FileError("the file holds elements of XML nested more than " +
                    std::to_string(limits::kNesting) + " deep");
  }

  Reader& reader_;
  Budget& budget_;
  int depth_ = 0;
  bool whole_ = false;
  Attributes attributes_;
};

// Throws a FileError where the text refers by number to no character: the parser would not return.
// And where a reference stands in too long a text: the parser would copy it.
void RefuseBadReferences(std::string_view text);

// Throws a FileError where the text is no XML, or does not fit the budget; what stands behind its
// root element is not looked at.
template <class Reader>
void Parse(std::string text, Reader& reader, Budget& budget) {
  RefuseBadReferences(text);
  // The parser may step over the end of a text that breaks off inside a tag, and does not find
  // back.  These close a value in either kind of quotes and are an error behind it, as in any other
  // place, well before that end.
  text += "\"'<<<<<<<<<<<<<<";
  Handler<Reader> handler(reader, budget);
  try {
    orcus::sax_parser<Handler<Reader>> parser(text.data(), text.size(), handler);
    parser.parse();
  } catch (const FileError&) {
    throw;
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception&) {
    if (!handler.Whole()) throw FileError("the workbook is damaged");
  }
}

}  // namespace quorval::xml
