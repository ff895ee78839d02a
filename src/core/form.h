#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dialog.h"
#include "core/notice.h"
#include "core/real.h"

namespace quorval {

// The values of one loaded dialog, and of the dialogs behind its buttons: a text for each field.
// The verb that reads a field says the type that is read; what it cannot read whole is noted where
// somebody listens.
class Form {
 public:
  explicit Form(const Dialog& dialog);

  const std::string& Text(const Field& field) const { return TextOf(field.key); }
  const std::string& TextOf(std::string_view key) const;

  // The number the text starts with, 0 where there is none; a Fault beyond 32 bits.
  Real LeadingNumber(const Field& field) const;
  // The same, rounded to 32 bits.
  Single LeadingNumber32(const Field& field) const { return Single(LeadingNumber(field)); }
  // The number that the whole text is; a Fault where it is none.
  Real TextAsNumber(const Field& field) const;
  // The same, rounded to 32 bits.
  Single TextAsNumber32(const Field& field) const;
  // The whole text as a 16-bit integer; a Fault where it is none.
  int TextAsInt16(const Field& field) const;

  bool On(const Field& check) const { return Text(check) == "on"; }
  bool Is(const Field& choice, std::string_view word) const { return Text(choice) == word; }
  bool Blank(const Field& field) const { return Read(field).empty(); }
  // Whether the whole text is a number.
  bool HoldsNumber(const Field& field) const;
  // Whether the text meets the field's demand; a Fault where it cannot be read as demanded.
  bool Meets(const Field& field) const;

  // While it lives, what the form shows in being read goes to the notices.
  class Listening {
   public:
    Listening(const Form& form, Notices& notices);
    ~Listening();
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

   private:
    const Form& form_;
    const std::optional<std::reference_wrapper<Notices>> before_;
  };
  // Notes what the field holds and, right after it, what came of that.
  void Note(const Field& field, std::string_view outcome) const;

  bool Holds(const When& when) const;
  bool Holds(const Conditions& conditions) const;

  // The field of this key; null where there is none.
  const Field* Find(std::string_view key) const;
  void Set(std::string_view key, std::string_view text);
  // Every field of one dialog (not of those behind it) back to its default.
  void Reset(const Dialog& dialog);
  // The fields of the dialogs behind the buttons as another form of the same dialog holds them.
  void TakeNested(const Form& other);

  const Dialog& dialog() const { return *dialog_; }
  // The fields that hold a value, in the order of the dialogs.
  const std::vector<const Field*>& fields() const { return fields_; }

  // The words of the first rule that is broken; empty when OK may go on.  Notes the field that
  // broke it.
  std::string_view BrokenRule(Notices& notices) const;

 private:
  // Where notices go; of one form alone, since a copy is read by somebody else.
  struct Listener {
    std::optional<std::reference_wrapper<Notices>> notices;
    std::string_view last_read, last_noted;  // keys of fields
    Listener() = default;
    Listener(const Listener&) {}
    Listener& operator=(const Listener&) { return *this; }
  };

  void Take(const Dialog& dialog);
  Real ReadAsDemanded(const Field& field) const;
  std::string_view WordsOfBroken(const Rule& rule) const;
  std::size_t IndexOf(std::string_view key) const;
  const std::string& Read(const Field& field) const;
  std::string NameOf(const Field& field) const;
  template <class Convert>
  auto ReadWhole(const Field& field, Convert&& convert) const;

  const Dialog* dialog_;
  std::vector<const Field*> fields_;
  std::vector<std::string> texts_;
  mutable Listener listener_;
};

}  // namespace quorval
