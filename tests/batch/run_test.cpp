// Expected numbers come from tests/independent/ordinary_least_squares.py.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <map>

#include "batch/program.h"
#include "core/conversion.h"
#include "support/data_file.h"
#include "support/temporary_folder.h"

namespace quorval::test {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using Json = nlohmann::ordered_json;
using Place = std::pair<int, int>;  // row, column

std::string FourDecimals(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.4f", value);
  return std::string(text) == "-0.0000" ? "0.0000" : text;
}

std::map<Place, Json> CellsOf(const Json& run) {
  std::map<Place, Json> cells;
  for (const Json& cell : run["results"]["cells"]) {
    EXPECT_TRUE(cells.emplace(Place{cell["row"], cell["column"]}, cell).second) << cell;
  }
  return cells;
}

// Every number of the sheet with all its digits and its text with four of them, and none beside but
// the counts.
TEST(Run, GivesEveryNumberOfTheSheet) {
  const Answered answer = RunForJson({"run", "ols", "--demo", "XY Regression Duplicate", "--set",
                                      "mode=duplicate", "--set", "xc1=5", "--set", "xc2=20.1",
                                      "--set", "show-bands=on", "--set", "show-residuals=on"});
  ASSERT_EQ(answer.status, 0);
  EXPECT_EQ(answer.err, "");
  std::map<Place, Json> numbers = CellsOf(answer.json);
  EXPECT_EQ(numbers.at({6, 2}).dump(), R"({"row":6,"column":2,"text":"25","value":25.0,"type":1})");
  std::erase_if(numbers, [](const auto& cell) { return !cell.second.contains("decimals"); });
  const auto expected = ReadDataFile("regressions.csv");
  std::size_t count = 0;
  for (std::size_t i = 0; i < expected[0].size(); ++i) {
    if (expected[0][i] != "ols duplicate") continue;
    ++count;
    const double value = std::stod(expected[3][i]);
    const Json& cell = numbers[{std::stoi(expected[1][i]), std::stoi(expected[2][i])}];
    ASSERT_TRUE(cell.is_object()) << i;
    EXPECT_THAT(cell["value"].get<double>(), DoubleNear(value, 1e-11)) << cell;
    EXPECT_EQ(cell["type"], 13) << cell;
    EXPECT_EQ(cell["text"], FourDecimals(value));
    EXPECT_EQ(cell["decimals"], "4") << cell;
  }
  EXPECT_EQ(numbers.size(), count);
}

TEST(Run, TellsAllThatTheWindowsShow) {
  const Answered answer = RunForJson({"run", "ols", "--demo", "XY Regression Single"});
  const Json& run = answer.json;
  std::vector<std::string> keys;
  for (const auto& [key, value] : run.items()) keys.push_back(key);
  EXPECT_THAT(keys, ElementsAre("schema", "analysis", "options", "status", "messages", "notices",
                                "results", "plots"));
  EXPECT_EQ(run["schema"], 1);
  EXPECT_EQ(run["analysis"], "ols");
  EXPECT_EQ(run["status"], "done");
  EXPECT_EQ(run["messages"], Json::array());
  EXPECT_EQ(run["options"].dump(),
            R"({"mode":"single","id":"1","first-column":"2","second-column":"3",)"
            R"("third-column":"4","fourth-column":"5","xc1":"","xc2":"","outlier-limit":"4",)"
            R"("show-residuals":"off","show-bands":"off","plot-bands":"on"})");
  EXPECT_EQ(run["results"]["window"], "MCstatF1s");
  EXPECT_EQ(run["results"]["title"],
            "Quorval      Ordinary Least-Squares Regression Analysis    Single (x, y)");
  EXPECT_EQ(run["results"]["open"], true);
  const Json& cells = run["results"]["cells"];
  EXPECT_EQ(cells[0].dump(),
            R"({"row":2,"column":1,"text":"  Results of Ordinary Least-Squares Regression )"
            R"(Analysis","type":1,"bold":true})");
  EXPECT_EQ(cells[2].dump(), R"text({"row":3,"column":2,"text":"Demo XY Regression Project )text"
                             R"text((single)","type":1})text");
  std::vector<Place> places;
  for (const Json& cell : cells) places.emplace_back(cell["row"], cell["column"]);
  EXPECT_TRUE(std::ranges::is_sorted(places));
}

TEST(Run, GivesTheSeriesOfEachPlot) {
  const Json run = RunForJson({"run", "ols", "--demo", "XY Regression Single"}).json;
  ASSERT_EQ(run["plots"].size(), 2u);
  const Json& xy = run["plots"][0];
  EXPECT_EQ(xy["window"], "frmXY1s");
  EXPECT_EQ(xy["caption"], "X-Y plot Ord. least-squares reg. analysis");
  EXPECT_EQ(xy["shown"], true);
  EXPECT_EQ(xy["x-min"], Json());
  std::vector<std::string> shapes;
  for (const Json& series : xy["series"])
    shapes.push_back(series["index"].dump() + " " + series["draw"].get<std::string>() + " " +
                     std::to_string(series["x"].size()) + " " + std::to_string(series["y"].size()));
  EXPECT_THAT(shapes, ElementsAre("1 points 25 25", "2 points 1 1", "3 line 2 2", "4 line 2 2",
                                  "5 line 11 11", "6 line 11 11"));
  EXPECT_EQ(xy["series"][0]["x"][0], 2.521);
  EXPECT_EQ(xy["series"][0]["y"][24], 7.653);
  EXPECT_EQ(xy["series"][3]["y"], Json::parse("[2.521, 23.409]"));
  const Json& residuals = run["plots"][1];
  EXPECT_EQ(residuals["window"], "frmRes1s");
  ASSERT_EQ(residuals["series"].size(), 1u);
  EXPECT_EQ(residuals["series"][0]["x"].size(), 25u);
}

TEST(Run, PrintsTheSheetAsATable) {
  const Ended ended =
      RunProgram({"run", "ols", "--demo", "XY Regression Duplicate", "--set", "mode=duplicate",
                  "--set", "xc1=5", "--decimals", "2", "--project", "M\xC3\xBCller\nand others"});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.out,
            "\n"
            "  Results of Ordinary Least-Squares Regression Analysis\n"
            "  Project:                                M\xC3\xBCller and others\n"
            "  Analyst:\n"
            "  Analyte:                                         Date:\n"
            "  Number of (x1, x2, y1, y2) data points     25\n"
            "  x1: Col no.                                 2\n"
            "  x2: Col no.                                 3\n"
            "  y1: Col no.                                 4\n"
            "  y2: Col no.                                 5\n"
            "  Slope b                                  0.96\n"
            "  SE b                                     0.03\n"
            "  95%-Conf. Int.                           0.90  1.02\n"
            "  Test for slope deviation from 1\n"
            "  t  and  P                               -1.27   n.s.\n"
            "  Correlation coefficient                  0.99   P < 0.001\n"
            "  SDyx                                     0.81\n"
            "  Test for dev. from linearity             n.s.\n"
            "  Intercept  a0                            0.56\n"
            "  SE a0                                    0.33\n"
            "  95%-Conf. Int.                          -0.13  1.25\n"
            "  Test for intercept deviation from 0\n"
            "  t  and  P                                1.69   n.s.\n"
            "  Critical value Xc1                       5.00\n"
            "  Difference Yc1 - Xc1 with SE             0.38  0.22\n"
            "\n"
            "\n"
            "  No outliers identified\n"
            "  Outlier limit: No. of SDs                4.00\n");
}

TEST(Run, WritesItsJsonBesideTheTable) {
  const TemporaryFolder folder;
  const Ended ended =
      RunProgram({"run", "ols", "--demo", "XY Regression Single", "--json", folder / "run.json"});
  EXPECT_THAT(ended.out, testing::HasSubstr("  Slope b "));
  EXPECT_EQ(Json::parse(BytesOf(folder / "run.json"))["status"], "done");
}

// --- Data files

TEST(DataFile, IsReadFromItsTitlesOn) {
  const TemporaryFolder folder;
  const std::string comma = folder / "a.csv";
  const std::string tab = folder / "a.tsv";
  WriteBytes(comma, "\xEF\xBB\xBFID,\"x, ref\",y\r\na,1,1\r\nb,2,3\r\nc,4,4\r\n\r\nd,7,7\r\n");
  WriteBytes(tab, "ID\tx, ref\ty\na\t1\t1\nb\t2\t3\nc\t4\t4\n\nd\t7\t7");
  const Answered answer = RunForJson({"run", "ols", comma});
  ASSERT_EQ(answer.status, 0);
  const auto cells = CellsOf(answer.json);
  EXPECT_EQ(cells.at({6, 2})["value"], 3);  // the blank line ends the columns
  // x 1, 2, 4 and y 1, 3, 4: Sxx = 14/3, Sxy = 13/3.
  EXPECT_THAT(cells.at({11, 2})["value"].get<double>(), DoubleNear(13.0 / 14, 1e-7));
  EXPECT_EQ(RunForJson({"run", "ols", tab}).json["results"], answer.json["results"]);
}

TEST(DataFile, OfBytesThatAreNotUtf8InTheOptionsIsNoHarm) {
  const Answered answer = RunForJson({"run", "ols", "--demo", "XY Regression Single", "--project",
                                      "\xB5mol", "--set", "xc1=\xFF"});
  EXPECT_EQ(answer.json["options"]["xc1"], "\xEF\xBF\xBD");
  EXPECT_EQ(CellsOf(answer.json).at({3, 2})["text"], "\xEF\xBF\xBDmol");
}

// --- Refusals and failures

const std::string kError = "Error occurred";

// The dialog's rules, after which no run takes place, and the run's.
TEST(Run, TellsItsRefusalsInOrder) {
  const struct {
    std::string name, data;
    Arguments options;
    std::vector<std::string> messages;
    bool open;  // the results window
  } cases[] = {
      {"column 0",
       "ID,x,y\na,1,1\nb,2,3\nc,4,4\n",
       {"--set", "first-column=0"},
       {"Selected column no. not allowed!"},
       false},
      {"an empty file", "", {}, {" n < 3: No regression analysis"}, true},
      {"unequal columns",
       "ID,x,y\na,1,1\nb,2,3\nc,4,4\nd,5,\n",
       {},
       {"Unequal number of observations in columns: No analysis", kError},
       true},
  };
  const TemporaryFolder folder;
  const std::string data = folder / "data.csv";
  for (const auto& [name, bytes, options, texts, open] : cases) {
    SCOPED_TRACE(name);
    WriteBytes(data, bytes);
    Arguments arguments{"run", "ols", data};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const Answered answer = RunForJson(arguments);
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(MessagesIn(answer.err), MessageLines(texts));
    EXPECT_EQ(answer.json["status"], "refused");
    Json messages = Json::array();
    for (const std::string& text : texts)
      messages.push_back({{"text", text}, {"title", ""}, {"buttons", "ok"}});
    EXPECT_EQ(answer.json["messages"], messages);
    EXPECT_EQ(answer.json["plots"], Json::array());
    const Json& results = answer.json["results"];
    EXPECT_EQ(results["window"], "MCstatF1s");
    EXPECT_THAT(results["title"], testing::Ne(""));
    EXPECT_EQ(results["open"], open);
    EXPECT_EQ(results["cells"], Json::array());
  }
}

TEST(Run, KeepsTheRowsWrittenBeforeBadDecimals) {
  for (const char* decimals : {"abc", "", "-1", "31"}) {
    const Answered answer =
        RunForJson({"run", "ols", "--demo", "XY Regression Single", "--decimals", decimals});
    EXPECT_EQ(answer.status, 1) << decimals;
    EXPECT_EQ(MessagesIn(answer.err), MessageLines({kError})) << decimals;
    const Json last = answer.json["results"]["cells"].back();
    EXPECT_EQ(last["row"], 11) << decimals;
    EXPECT_EQ(last["text"], "  Slope b") << decimals;
  }
}

// The notice with the points is no part of the question.
TEST(Run, RepeatsWithoutTheOutliersOnce) {
  const Arguments arguments{"run",   "deming",          "--demo",     "XY Regression Single",
                            "--set", "outlier-limit=2", "--reanalyse"};
  const Answered answer = RunForJson(arguments);
  EXPECT_EQ(answer.status, 0);
  ASSERT_EQ(answer.json["messages"].size(), 1U);
  EXPECT_EQ(answer.json["messages"][0]["text"], "Repeat analysis without identified outliers ?");
  EXPECT_EQ(answer.json["messages"][0]["buttons"], "yes-no");
  std::map<Place, Json> cells = CellsOf(answer.json);
  EXPECT_EQ(cells[Place(2, 1)]["text"],
            "  Results of Deming Regression Analysis (re-analysis after outlier rejection)");
  EXPECT_EQ(cells[Place(6, 2)]["text"], "24");

  const Answered none =
      RunForJson({"run", "deming", "--demo", "XY Regression Single", "--reanalyse"});
  EXPECT_EQ(none.status, 0);
  EXPECT_TRUE(none.json["messages"].empty());
}

TEST(Run, PrintsNoTableOfAWindowThatIsNotOpen) {
  const Ended ended =
      RunProgram({"run", "ols", "--demo", "XY Regression Single", "--set", "outlier-limit=-4"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.out, "");
}

}  // namespace
}  // namespace quorval::test
