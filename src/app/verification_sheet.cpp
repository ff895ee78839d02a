#include "app/verification_sheet.h"

#include <array>
#include <cstdio>
#include <sstream>

#include "results/print.h"

namespace quorval {
namespace {

constexpr std::array kTitles{"Data set", "Source", "Analysis", "Quantity",  "Published",
                             "Computed", "Digits", "Needed",   "Tolerance", "Verdict"};
constexpr std::size_t kLineLength = 120;

std::string AllDigits(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.15g", value);
  return text;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines(1);
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    if (lines.back().size() + word.size() > kLineLength) lines.emplace_back();
    lines.back() += lines.back().empty() ? word : " " + word;
  }
  return lines;
}

// Writes a sheet from the top down.
class SheetWriter {
 public:
  explicit SheetWriter(int rows) : grid_(static_cast<int>(kTitles.size()), rows) {}

  void SkipRow() { ++row_; }
  void Line(const std::string& name, const std::string& text) {
    Put(1, name).look.bold = true;
    for (const std::string& line : Lines(text)) {
      Put(2, line).look.overflow = true;
      ++row_;
    }
  }
  void Heading(const std::string& text) {
    Cell& cell = Put(1, text);
    cell.look.bold = cell.look.overflow = true;
    ++row_;
  }
  void Titles() {
    int column = 0;
    for (const char* title : kTitles) {
      Cell& cell = Put(++column, title);
      cell.look.bold = true;
      cell.look.colour = kGrey;
    }
    ++row_;
  }
  void Result(const VerificationRow& result) {
    int column = 0;
    for (const std::string& text :
         {result.data, result.source, result.analysis, result.quantity, result.published,
          result.computed ? AllDigits(*result.computed) : "none " + result.messages})
      Put(++column, text);
    grid_.SetNumber(++column, row_, result.digits, 1);
    grid_.SetNumber(++column, row_, result.needed, 0);
    Put(++column, result.tolerance);
    Put(++column, result.Passed() ? "pass" : "FAIL").look.bold = !result.Passed();
    ++row_;
  }
  Grid Take() && { return std::move(grid_); }

 private:
  Cell& Put(int column, const std::string& text) {
    Cell& cell = grid_.Edit(column, row_);
    cell.text = text;
    return cell;
  }

  Grid grid_;
  int row_ = 1;
};

}  // namespace

Grid VerificationSheet(const Verification& verification) {
  constexpr int kLinesOfATerm = 10, kFrame = 20;
  SheetWriter sheet(static_cast<int>(verification.rows.size()) +
                    kLinesOfATerm * static_cast<int>(verification.terms.size()) + kFrame);
  sheet.Heading("Verification of Quorval " QUORVAL_VERSION " by published data");
  sheet.Heading(verification.Verdict());
  sheet.Line("Date:", "");
  sheet.Line("Signature:", "");
  sheet.SkipRow();
  sheet.Titles();
  for (const VerificationRow& row : verification.rows) sheet.Result(row);
  sheet.SkipRow();
  sheet.Heading("Sources, and why a tolerance is what it is");
  for (const VerificationTerm& term : verification.terms) sheet.Line(term.name, term.meaning);
  return std::move(sheet).Take();
}

PrintJob VerificationPages(const Grid& sheet) {
  PrintJob job = SheetPage(sheet, "/cQuorval - Verification report/n");
  job.landscape = true;
  job.name = "Quorval verification report";
  return job;
}

}  // namespace quorval
