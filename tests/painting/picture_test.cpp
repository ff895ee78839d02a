#include "painting/picture.h"

#include <gtest/gtest.h>
#include <qcustomplot.h>

#include <QFile>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <fstream>
#include <iterator>

#include "painting/chart.h"

namespace quorval {
namespace {

std::string Bytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

Plot LinePlot(Mark mark = Mark::kDot) {
  Plot plot{.window = "frmXY1s", .aspect = 2};
  plot.AddLine({{0, 0}, {10, 10}});
  plot.AddPoints({{2, 8}}, mark);
  return plot;
}

class Pictures : public testing::Test {
 protected:
  std::filesystem::path In(const std::string& name) const { return folder_ / name; }

 private:
  QTemporaryDir directory_;
  std::filesystem::path folder_{directory_.path().toStdString()};
};

TEST_F(Pictures, AreWrittenByTheExtension) {
  for (const char* name : {" Chart2D1.bmp", "Größe µ.PNG"}) {
    ASSERT_TRUE(WritePicture(LinePlot(), In(name)));
    const QImage image = QImage::fromData(QByteArray::fromStdString(Bytes(In(name))));
    EXPECT_EQ(image.size(), QSize(2160, 1080)) << name;
    EXPECT_EQ(image.pixelColor(3, 3), QColor(Qt::white));
  }
  ASSERT_TRUE(WritePicture(LinePlot(), In(" a.svg")));
  const QSvgRenderer svg(QByteArray::fromStdString(Bytes(In(" a.svg"))));
  EXPECT_TRUE(svg.isValid());
  EXPECT_EQ(svg.viewBox(), QRect(0, 0, 720, 360));
  ASSERT_TRUE(WritePicture(LinePlot(), In("a.pdf")));
  const std::string pdf = Bytes(In("a.pdf"));
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_NE(pdf.find("/MediaBox [0 0 540"), std::string::npos);  // 720 pixels at 96 an inch
}

TEST_F(Pictures, AreRefusedWhereTheyCannotBeWritten) {
  EXPECT_FALSE(WritePicture(LinePlot(), In("no folder/a.png")));
  EXPECT_FALSE(WritePicture(LinePlot(), In("a.doc")));
  EXPECT_FALSE(WritePicture(LinePlot(), In("a")));
}

QImage Drawn(const Plot& plot) {
  QCustomPlot chart;
  DrawPlot(plot, chart);
  return ImageOf(chart, {400, 300});
}

// How many pixels have a colour close to this one.
int Count(const QImage& image, QColor colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      count += std::abs(pixel.red() - colour.red()) + std::abs(pixel.green() - colour.green()) +
                   std::abs(pixel.blue() - colour.blue()) <
               40;
    }
  return count;
}

TEST_F(Pictures, ShowMarkedPointsInAnotherColour) {
  const QColor vermilion(0xD5, 0x5E, 0x00);
  EXPECT_EQ(Count(Drawn(LinePlot(Mark::kDot)), vermilion), 0);
  EXPECT_GT(Count(Drawn(LinePlot(Mark::kCross)), vermilion), 50);
}

TEST_F(Pictures, ShowVerticalLinesWhole) {
  Plot plot{.window = "vertical"};
  plot.Add({.draw = Draw::kLine, .points = {{5, 0}, {5, 10}}, .colour = 0xFF0000});
  plot.y.min = 0;
  plot.y.max = 10;
  // The frame is higher than two thirds of the picture's 900 pixels; the line is 1.6 x 3 wide.
  EXPECT_GT(Count(Drawn(plot), Qt::red), 600 * 3);
}

TEST_F(Pictures, WithoutSeriesAreAnEmptyFrame) {
  const QImage image = Drawn(Plot{.window = "empty"});
  EXPECT_EQ(image.pixelColor(image.rect().center()), QColor(Qt::white));
  EXPECT_GT(Count(image, QColor(0x40, 0x40, 0x40)), 2000);
}

}  // namespace
}  // namespace quorval
