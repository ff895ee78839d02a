#include "painting/page_painter.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "core/results_sheet.h"
#include "results/print.h"

namespace quorval {
namespace {

using testing::HasSubstr;

class PagePainter : public testing::Test {
 protected:
  PagePainter() {
    sheet_.Frame("  Results of Ordinary Least-Squares Regression Analysis");
    for (int row = 6; row <= 80; ++row) sheet_.Row(row, "  Slope b", Real(row) / 8, "n.s.");
    sheet_.PaintHead();
    job_ = SheetPage(sheet_.grid(), "/cOrd. Linear regression/rPage #/p/n");
  }

  // The pages that are painted, as the jobs count them.
  std::vector<int> PagesOf(std::span<const PrintJob> jobs, QPrinter& printer) {
    std::vector<int> painted;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(directory_.filePath("pages.pdf"));
    EXPECT_TRUE(PaintJobs(jobs, QLocale::c(), printer, [&](const PrintJob&, int page, int) {
      painted.push_back(page);
      return true;
    }));
    return painted;
  }

  // The text of a PDF file's pages; nothing without the tool that reads it.
  std::string TextOf(const QString& file) const {
    const QString tool = QStandardPaths::findExecutable("pdftotext");
    if (tool.isEmpty()) return {};
    QProcess process;
    process.start(tool, {"-layout", directory_.filePath(file), "-"});
    process.waitForFinished();
    return process.readAllStandardOutput().toStdString();
  }

  std::filesystem::path In(const char* name) const {
    return directory_.filePath(name).toStdString();
  }

  QTemporaryDir directory_;
  Context context_;
  ResultsSheet sheet_{context_};
  PrintJob job_{};
};

TEST_F(PagePainter, EachJobStartsAPageAndCountsItsOwn) {
  const PrintJob jobs[] = {job_, job_};
  QPrinter printer(QPrinter::HighResolution);
  EXPECT_THAT(PagesOf(jobs, printer), testing::ElementsAre(1, 2, 1, 2));
}

TEST_F(PagePainter, KeepsToThePagesAskedFor) {
  const PrintJob jobs[] = {job_, job_};
  QPrinter printer(QPrinter::HighResolution);
  printer.setPrintRange(QPrinter::PageRange);
  printer.setFromTo(2, 3);
  EXPECT_THAT(PagesOf(jobs, printer), testing::ElementsAre(2, 1));
}

TEST_F(PagePainter, StopsWhenTheUserCancels) {
  int asked = 0;
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFileName(directory_.filePath("stopped.pdf"));
  EXPECT_TRUE(PaintJobs({&job_, 1}, QLocale::c(), printer,
                        [&](const PrintJob&, int, int) { return ++asked < 2; }));
  EXPECT_EQ(asked, 2);
}

TEST_F(PagePainter, WritesTheTextsOfThePages) {
  ASSERT_TRUE(PrintToPdf({&job_, 1}, QLocale("de_DE"), In(" results.pdf")));
  const std::string text = TextOf(" results.pdf");
  if (text.empty()) GTEST_SKIP() << "no pdftotext";
  const std::string second = text.substr(text.find('\f') + 1);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 2);
  EXPECT_THAT(text, HasSubstr("Results of Ordinary Least-Squares Regression Analysis"));
  EXPECT_THAT(text, HasSubstr("Ord. Linear regression"));
  EXPECT_THAT(text, HasSubstr("Page #1"));
  EXPECT_THAT(second, HasSubstr("Page #2"));
  EXPECT_THAT(second, HasSubstr("Quorval"));
  EXPECT_THAT(second, HasSubstr("9,8750"));  // row 79 of 80
}

TEST_F(PagePainter, TellsWhatCannotBeWritten) {
  EXPECT_FALSE(PrintToPdf({&job_, 1}, QLocale::c(), In("no folder/a.pdf")));
}

}  // namespace
}  // namespace quorval
