#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "batch/commands.h"
#include "batch/json.h"
#include "batch/lookup.h"
#include "core/form.h"

namespace quorval {
namespace {

std::string_view KindWord(FieldKind kind) {
  switch (kind) {
    case FieldKind::kChoice:
      return "choice";
    case FieldKind::kCheck:
      return "check";
    default:
      return "text";
  }
}

std::string_view UnitWord(Unit unit) {
  switch (unit) {
    case Unit::kMeasurand:
      return "measurand";
    case Unit::kPercent:
      return "percent";
    default:
      return "none";
  }
}

std::string_view WidthWord(Width width) {
  switch (width) {
    case Width::kWhole:
      return "whole";
    case Width::k32:
      return "32 bits";
    default:
      return "64 bits";
  }
}

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

// --- As text

std::string ConditionText(const When& when) {
  return " while " + std::string(when.key) + " is " + std::string(when.word);
}

// What stands at the field: its caption, else the line above it, else its group's.
std::string_view OwnCaption(const Field& field) {
  if (!field.caption.empty()) return field.caption;
  return field.heading.empty() ? field.group : field.heading;
}

// The caption, and when it or the whole field is another.
std::string CaptionText(const Field& field) {
  std::string text = Quoted(OwnCaption(field));
  if (!field.renamed.key.empty())
    text += "; " + Quoted(field.other_caption) + ConditionText(field.renamed);
  for (const When& when : field.shown)
    if (!when.key.empty()) text += "; shown" + ConditionText(when);
  for (const When& when : field.enabled)
    if (!when.key.empty()) text += "; usable" + ConditionText(when);
  return text;
}

std::size_t WidestKey(const Form& form) {
  std::size_t widest = 0;
  for (const Field* field : form.fields()) {
    widest = std::max(widest, field->key.size());
    for (const Choice& choice : field->choices) widest = std::max(widest, choice.word.size() + 2);
  }
  return widest;
}

void PrintQuantities(const Analysis& analysis) {
  std::size_t widest = 0;
  for (const Quantity& one : analysis.quantities) widest = std::max(widest, one.name.size());
  for (const NamedTable& one : analysis.tables) widest = std::max(widest, one.name.size());
  const int name_width = static_cast<int>(widest) + 2;
  std::cout << "\nQuantities of the results sheet:\n";
  for (const Quantity& one : analysis.quantities)
    std::cout << "  " << std::setw(name_width) << one.name << std::setw(11) << UnitWord(one.unit)
              << std::setw(9) << WidthWord(one.width) << Quoted(one.caption) << '\n';
  if (!analysis.tables.empty()) std::cout << "\nTables of the results sheet:\n";
  for (const NamedTable& one : analysis.tables)
    std::cout << "  " << std::setw(name_width) << one.name << Quoted(one.caption) << '\n';
}

void PrintDescription(const MenuEntry& entry) {
  const Form form(*entry.analysis->dialog);
  const int key_width = static_cast<int>(WidestKey(form)) + 2;
  std::cout << std::left << entry.analysis->id << ": " << Quoted(entry.caption) << "\n\n";
  for (const Field* field : form.fields()) {
    std::cout << std::setw(key_width) << field->key << std::setw(8) << KindWord(field->kind)
              << "default " << std::setw(12) << Quoted(field->initial) << ' ' << CaptionText(*field)
              << '\n';
    for (const Choice& choice : field->choices)
      std::cout << "  " << std::setw(key_width + 26) << choice.word << ' ' << Quoted(choice.caption)
                << '\n';
  }
  PrintQuantities(*entry.analysis);
}

// --- As JSON

Json ConditionsJson(std::span<const When> conditions) {
  Json json = Json::object();
  for (const When& when : conditions)
    if (!when.key.empty()) json[std::string(when.key)] = when.word;
  return json;
}

Json FieldJson(const Field& field) {
  Json json{{"key", field.key}, {"caption", field.caption}, {"kind", KindWord(field.kind)}};
  json["choices"] = Json::array();
  for (const Choice& choice : field.choices)
    json["choices"].push_back({{"word", choice.word}, {"caption", choice.caption}});
  json["default"] = field.initial;
  json["group"] = field.group;
  if (!field.heading.empty()) json["heading"] = field.heading;
  if (!field.renamed.key.empty()) {
    json["other-caption"] = field.other_caption;
    json["other-caption-while"] = ConditionsJson({&field.renamed, 1});
  }
  if (Json shown = ConditionsJson(field.shown); !shown.empty()) json["shown-while"] = shown;
  if (Json usable = ConditionsJson(field.enabled); !usable.empty()) json["usable-while"] = usable;
  return json;
}

Json DescriptionJson(const MenuEntry& entry) {
  const Dialog& dialog = *entry.analysis->dialog;
  Json json{{"schema", kJsonSchema},    {"analysis", entry.analysis->id},
            {"caption", entry.caption}, {"window", dialog.window},
            {"title", dialog.title},    {"heading", dialog.heading},
            {"manual", entry.analysis->manual}};
  json["fields"] = Json::array();
  const Form form(dialog);
  for (const Field* field : form.fields()) json["fields"].push_back(FieldJson(*field));
  json["quantities"] = Json::array();
  for (const Quantity& one : entry.analysis->quantities)
    json["quantities"].push_back({{"name", one.name},
                                  {"caption", one.caption},
                                  {"unit", UnitWord(one.unit)},
                                  {"width", WidthWord(one.width)}});
  json["tables"] = Json::array();
  for (const NamedTable& one : entry.analysis->tables)
    json["tables"].push_back({{"name", one.name}, {"caption", one.caption}});
  return json;
}

struct DescribeOptions {
  std::string analysis;
  bool json = false;
};

ExitStatus Describe(const DescribeOptions& options) {
  const MenuEntry entry = AnalysisNamed(options.analysis);
  if (options.json) {
    std::cout << JsonText(DescriptionJson(entry));
  } else {
    PrintDescription(entry);
  }
  return ExitStatus::kDone;
}

}  // namespace

void AddDescribeCommand(CLI::App& program, Task& chosen) {
  CLI::App* const describe = program.add_subcommand(
      "describe",
      "Describe an analysis: key, kind, default and caption of each field of its dialog, and the "
      "names of what its results sheet shows");
  const auto options = std::make_shared<DescribeOptions>();
  describe->add_option("ANALYSIS", options->analysis, "The analysis' id, as \"list\" names it")
      ->required();
  describe->add_flag("--json", options->json, "Print the description as JSON");
  describe->footer(
      "The keys are those that \"run\" takes as --set KEY=VALUE. A text takes any text, a choice "
      "one\n"
      "of its words, a check \"on\" or \"off\".");
  describe->callback([&chosen, options] { chosen = [options] { return Describe(*options); }; });
}

}  // namespace quorval
