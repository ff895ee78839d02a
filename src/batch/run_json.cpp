#include "batch/run_json.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace quorval {
namespace {

Json OptionsJson(const Form& form) {
  Json json = Json::object();
  for (const Field* field : form.fields()) json[std::string(field->key)] = form.Text(*field);
  return json;
}

Json MessagesJson(std::span<const MessageBox> boxes) {
  Json json = Json::array();
  for (const MessageBox& box : boxes)
    json.push_back({{"text", box.text},
                    {"title", box.title},
                    {"buttons", box.buttons == Buttons::kYesNo ? "yes-no" : "ok"}});
  return json;
}

Json NoticesJson(const Notices& notices) {
  Json json = Json::array();
  for (const Notice& notice : notices) {
    Json& one = json.emplace_back(Json{{"kind", notice.kind}, {"text", notice.text}});
    if (notice.column) one["column"] = *notice.column;
    if (notice.row) one["row"] = *notice.row;
  }
  return json;
}

// --- The results window

Json CellJson(const Cell& cell, int row, int column) {
  Json json{{"row", row}, {"column", column}, {"text", cell.Text()}};
  if (cell.value) json["value"] = *cell.value;
  json["type"] = static_cast<int>(cell.look.type);
  if (cell.look.type == CellType::kNumber) json["decimals"] = std::to_string(cell.look.decimals);
  if (cell.look.bold) json["bold"] = true;
  if (cell.look.italic) json["italic"] = true;
  return json;
}

// Rows are counted from `first_row`.
Json CellsJson(const Grid& grid, int first_row = 1) {
  Json json = Json::array();
  const int rows = grid.DataRowCnt();
  const int columns = grid.DataColCnt();
  for (int row = 1; row <= rows; ++row)
    for (int column = 1; column <= columns; ++column)
      if (const Cell& cell = grid.At(column, row); !cell.Empty())
        json.push_back(CellJson(cell, row - 1 + first_row, column));
  return json;
}

Json NumberJson(const GivenQuantity& given) {
  if (given.quantity.width == Width::kWhole) return static_cast<std::int64_t>(given.value);
  return given.value;
}

Json QuantitiesJson(std::span<const GivenQuantity> quantities) {
  Json json = Json::object();
  for (const GivenQuantity& given : quantities)
    json[std::string(given.quantity.name)] = NumberJson(given);
  return json;
}

// Where the dialog refused there is no window yet, and the one that would have come is named.
Json ResultsJson(const OpenAnalysis& open) {
  if (!open.results) {
    const Procedure& procedure = ProcedureFor(*open.analysis, open.form);
    return {{"window", procedure.window},
            {"title", TitleOf(procedure, open.form)},
            {"open", false},
            {"cells", Json::array()},
            {"quantities", Json::object()}};
  }
  const ResultsWindow& results = *open.results;
  return {{"window", results.procedure->window},
          {"title", results.title},
          {"open", results.shown},
          {"cells", CellsJson(results.sheet.grid())},
          {"quantities", QuantitiesJson(results.sheet.quantities())}};
}

// --- The plot windows

std::string_view DrawWord(Draw draw) {
  switch (draw) {
    case Draw::kLine:
      return "line";
    case Draw::kBars:
      return "bars";
    case Draw::kPointsAndLine:
      return "points+line";
    default:
      return "points";
  }
}

Json SeriesJson(const Series& series, std::size_t index) {
  Json x = Json::array();
  Json y = Json::array();
  for (const Point& point : series.points) {
    x.push_back(Raw(point.x));
    y.push_back(Raw(point.y));
  }
  return {
      {"index", index}, {"draw", DrawWord(series.draw)}, {"x", std::move(x)}, {"y", std::move(y)}};
}

Json EndJson(const std::optional<Real>& end) { return end ? Json(Raw(*end)) : Json(); }

Json PlotJson(const Plot& plot) {
  Json json{{"window", plot.window},        {"caption", plot.caption},
            {"header", plot.header},        {"label", plot.label},
            {"shown", plot.shown},          {"x-title", plot.x.title},
            {"y-title", plot.y.title},      {"x-min", EndJson(plot.x.min)},
            {"x-max", EndJson(plot.x.max)}, {"y-min", EndJson(plot.y.min)},
            {"y-max", EndJson(plot.y.max)}};
  json["series"] = Json::array();
  for (std::size_t i = 0; i < plot.series.size(); ++i)
    json["series"].push_back(SeriesJson(plot.series[i], i + 1));
  return json;
}

Json PlotsJson(std::span<const Plot> plots, Outcome outcome) {
  Json json = Json::array();
  for (const Plot& plot : plots)
    if (outcome == Outcome::kDone || !plot.series.empty()) json.push_back(PlotJson(plot));
  return json;
}

}  // namespace

Json RunJson(const OpenAnalysis& open, Outcome outcome, std::span<const MessageBox> boxes,
             const Notices& notices, std::span<const Plot> plots) {
  return {{"schema", kJsonSchema},
          {"analysis", open.analysis->id},
          {"options", OptionsJson(open.form)},
          {"status", outcome == Outcome::kDone ? "done" : "refused"},
          {"messages", MessagesJson(boxes)},
          {"notices", NoticesJson(notices)},
          {"results", ResultsJson(open)},
          {"plots", PlotsJson(plots, outcome)}};
}

Json ToolJson(const Tool& tool, const Form& form, Outcome outcome,
              std::span<const MessageBox> boxes, const Notices& notices,
              const Worksheet& worksheet) {
  return {{"schema", kJsonSchema},
          {"tool", tool.id},
          {"options", OptionsJson(form)},
          {"status", outcome == Outcome::kDone ? "done" : "refused"},
          {"messages", MessagesJson(boxes)},
          {"notices", NoticesJson(notices)},
          {"worksheet", {{"cells", CellsJson(worksheet.grid(), 0)}}}};
}

}  // namespace quorval
