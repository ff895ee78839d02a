// Every analysis hands its notices out as the workbench tells them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "batch/program.h"
#include "support/notice_cases.h"
#include "support/temporary_folder.h"

namespace quorval::test {
namespace {

using Json = nlohmann::ordered_json;

std::string CsvOf(const Worksheet& worksheet) {
  std::string csv;
  for (int row = 0; row <= kRows; ++row) {
    for (int column = 1; column <= 6; ++column)
      csv += worksheet.Text(column, row) + (column < 6 ? "," : "\n");
  }
  return csv;
}

Json JsonOf(const Notices& notices) {
  Json json = Json::array();
  for (const Notice& notice : notices) {
    Json one{{"kind", notice.kind}, {"text", notice.text}};
    if (notice.column) one["column"] = *notice.column;
    if (notice.row) one["row"] = *notice.row;
    json.push_back(one);
  }
  return json;
}

class HandedOut : public testing::TestWithParam<NoticeCase> {
 protected:
  void Expect(const Worksheet& worksheet, const Settings& settings) {
    const Transcript told = RunOn(worksheet, *FindAnalysis(GetParam().analysis), settings);
    ASSERT_FALSE(told.notices.empty());
    const std::string data = folder_ / "data.csv";
    WriteBytes(data, CsvOf(worksheet));
    Arguments arguments{"run", GetParam().analysis, data};
    for (const auto& [key, text] : settings)
      arguments.insert(arguments.end(), {"--set", key + "=" + text});
    const Answered answer = RunForJson(arguments);
    EXPECT_EQ(answer.status, told.outcome == Outcome::kDone ? 0 : 1);
    EXPECT_EQ(answer.json["notices"], JsonOf(told.notices));
    std::string notes = MessageLines(told.boxes);
    for (const Notice& notice : told.notices) notes += "note: " + notice.text + "\n";
    EXPECT_EQ(answer.err, notes);
  }

 private:
  TemporaryFolder folder_;
};

TEST_P(HandedOut, AsNotesAndJson) {
  const NoticeCase& one = GetParam();
  Expect(WithGaps(one), one.settings);
  Expect(WithWord(one.columns.back()), one.settings);
  if (!one.unequal.empty()) Expect(WithShorterColumn(one), one.settings);
  Expect(SoundWorksheet(), WithBlank(one));
}

INSTANTIATE_TEST_SUITE_P(Notices, HandedOut, testing::ValuesIn(NoticeCases()));

TEST(Notices, OfADataToolAreHandedOutToo) {
  const TemporaryFolder folder;
  const std::string data = folder / "data.csv";
  WriteBytes(data, "a,b\n3,1\n1,2\n,\n2,5\n");
  const Ended ended = RunProgram({"data", "sort", data, "--set", "column=1", "--save",
                                  folder / "out.csv", "--json", folder / "out.json"});
  EXPECT_EQ(ended.status, 0);
  const std::string note =
      "column 1 ends at row 3, its first empty cell; 1 number below was not read";
  EXPECT_EQ(ended.err, "note: " + note + "\n");
  EXPECT_EQ(Json::parse(BytesOf(folder / "out.json"))["notices"], JsonOf({{"gap", note, 1, 3}}));
  EXPECT_EQ(BytesOf(folder / "out.csv").substr(0, 12), "a,b\n1,1\n3,2\n");
}

}  // namespace
}  // namespace quorval::test
