#include "app/verification.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/digits_of_agreement.h"
#include "support/data_folder.h"
#include "support/temporary_folder.h"

namespace quorval {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

TEST(DigitsOfAgreement, AreThoseOfThePublishedNumber) {
  const struct {
    const char* published;
    double computed, digits;
  } cases[] = {
      {"2.00000", 2, 6},
      {"2.00000", 2.0000051, 5.5},  // -log10(2.55e-6) = 5.59
      {"2.00000", 2.0000049, 6},    // rounds to it
      {"-2.1", -2.1176, 2},
      {"-2.1", 2.1176, 0},
      {"38.8", 38.9, 2.5},  // -log10(0.1 / 38.8) = 2.59
      {"0.00120", 0.0012049, 3},
      {"0.324580000000000E-02", 0.0032458000001, 10.5},  // -log10(3.08e-11) = 10.51
      {"1e3", 2000, 0},
      {"0.000", 0, 15},
      {"0.000", 2e-9, 8.6},  // -log10(2e-9) = 8.699
      {"0", -3, 0},
  };
  for (const auto& one : cases)
    EXPECT_DOUBLE_EQ(DigitsOfAgreement(one.published, one.computed), one.digits)
        << one.published << " " << one.computed;
  for (const char* words : {"", "x", "1.0 ", "1.0x", "nan", "inf"})
    EXPECT_THROW(DigitsOfAgreement(words, 1), std::runtime_error) << words;
}

// A folder with one run of Norris' data and one result.
class VerificationTables : public testing::Test {
 protected:
  VerificationTables() {
    std::filesystem::copy(test::DataFile("nist_lin_Norris.csv"), folder / "norris.csv");
    test::WriteBytes(folder / "terms.csv", "name,meaning\nby hand,No reason.\n");
    WriteRun("ols,first-column=1 second-column=2");
    WriteResult("a,slope,slope,1.00211681802045,6,by hand");
  }
  void WriteRun(const std::string& analysis_and_settings) const {
    test::WriteBytes(folder / "runs.csv",
                     "run,data,file,source,analysis,settings\n"
                     "a,Norris,norris.csv,NIST," +
                         analysis_and_settings);
  }
  void WriteResult(const std::string& row) const {
    test::WriteBytes(folder / "results.csv",
                     "run,quantity,name,published,digits,tolerance\n" + row);
  }

  test::TemporaryFolder folder;
};

TEST_F(VerificationTables, DecideWhatPasses) {
  Verification verification = Verify(folder.path());
  ASSERT_EQ(verification.rows.size(), 1u);
  EXPECT_NEAR(*verification.rows[0].computed, 1.00211681802045, 1e-7);
  EXPECT_TRUE(verification.rows[0].Passed());
  EXPECT_EQ(verification.MeaningOf("by hand"), "No reason.");
  EXPECT_EQ(verification.Failures(), 0);
  EXPECT_THAT(verification.Verdict(), HasSubstr("All 1 results agree"));

  for (const char* failing : {"a,slope,slope,1.00213,6,by hand",     // another number
                              "a,slope,Slope,1.00211681802045,0,x",  // no such name
                              "a,n,outliers,0,0,x"}) {               // on no row of this sheet
    WriteResult(failing);
    verification = Verify(folder.path());
    EXPECT_EQ(verification.Failures(), 1) << failing;
    EXPECT_EQ(verification.Verdict(), "1 of 1 results FAIL.");
  }
}

TEST_F(VerificationTables, FailARefusedRunWithItsMessage) {
  WriteRun("ols,first-column=0 second-column=2");
  const VerificationRow row = Verify(folder.path()).rows.at(0);
  EXPECT_FALSE(row.Passed());
  EXPECT_FALSE(row.computed.has_value());
  EXPECT_NE(row.messages, "");
}

TEST_F(VerificationTables, AreRefusedWithTheReason) {
  const auto refuses = [&](const std::string& words) {
    EXPECT_THAT([&] { Verify(folder.path()); },
                ThrowsMessage<std::runtime_error>(HasSubstr(words)));
  };
  WriteResult("b,slope,slope,1,6,x");
  refuses("a result belongs to no run");
  WriteResult("a,slope,slope,one,6,x");
  refuses("results.csv, row 1: \"one\" is no number");
  WriteRun("old,");
  refuses("runs.csv, row 1: there is no analysis \"old\"");
  WriteRun("ols,mode=triple");
  refuses("runs.csv, row 1: \"mode\" cannot be \"triple\"");
  WriteRun("ols,");
  std::filesystem::remove(folder / "norris.csv");
  refuses("norris.csv");
  test::WriteBytes(folder / "runs.csv", "run\na\n");
  refuses("runs.csv: there is no column \"data\"");
}

}  // namespace
}  // namespace quorval
