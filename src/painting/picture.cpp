#include "painting/picture.h"

#include <qcustomplot.h>

#include <QBuffer>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <cmath>
#include <optional>

#include "painting/byte_file.h"
#include "painting/chart.h"

namespace quorval {
namespace {

constexpr int kScreenDpi = 96;
constexpr int kBitmapScale = 3;
constexpr int kPdfDpi = 1200;
constexpr int kPictureWidth = 720;

void Paint(QCustomPlot& chart, QSize size, QPaintDevice& device, double scale, bool vectors) {
  QCPPainter painter(&device);
  painter.setMode(QCPPainter::pmVectorized, vectors);
  painter.setMode(QCPPainter::pmNonCosmetic);
  painter.scale(scale, scale);
  chart.toPainter(&painter, size.width(), size.height());
}

QByteArray BitmapBytes(QCustomPlot& chart, QSize size, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  const bool written = ImageOf(chart, size).save(&buffer, format);
  return written ? bytes : QByteArray();
}

QByteArray SvgBytes(QCustomPlot& chart, QSize size) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setTitle(chart.windowTitle());
  svg.setDescription({});
  svg.setResolution(kScreenDpi);
  svg.setSize(size);
  svg.setViewBox(QRect({0, 0}, size));
  Paint(chart, size, svg, 1, true);
  return bytes;
}

QByteArray PdfBytes(QCustomPlot& chart, QSize size) {
  constexpr double kPointsPerPixel = 72.0 / kScreenDpi;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  pdf.setTitle(chart.windowTitle());
  pdf.setResolution(kPdfDpi);
  pdf.setPageSize(
      QPageSize(QSizeF(size) * kPointsPerPixel, QPageSize::Point, {}, QPageSize::ExactMatch));
  pdf.setPageMargins({});
  Paint(chart, size, pdf, double(kPdfDpi) / kScreenDpi, true);
  return bytes;
}

// The picture in the format of the extension; empty where that is none of ours.
QByteArray BytesOf(QCustomPlot& chart, QSize size, const std::string& named) {
  const std::string extension = QString::fromStdString(named).toLower().toStdString();
  if (extension == ".png") return BitmapBytes(chart, size, "PNG");
  if (extension == ".bmp") return BitmapBytes(chart, size, "BMP");
  if (extension == ".svg") return SvgBytes(chart, size);
  if (extension == ".pdf") return PdfBytes(chart, size);
  return {};
}

}  // namespace

QImage ImageOf(QCustomPlot& chart, QSize size) {
  constexpr double kMetresPerInch = 0.0254;
  QImage image(size * kBitmapScale, QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setDotsPerMeterX(int(std::lround(kBitmapScale * kScreenDpi / kMetresPerInch)));
  image.setDotsPerMeterY(image.dotsPerMeterX());
  Paint(chart, size, image, kBitmapScale, false);
  return image;
}

bool WritePicture(QCustomPlot& chart, QSize size, const std::filesystem::path& path) {
  const QByteArray bytes = BytesOf(chart, size, path.extension().string());
  return !bytes.isEmpty() && WriteBytes(bytes, path);
}

QByteArray PictureBytes(const Plot& plot, const std::string& extension) {
  QCustomPlot chart;
  DrawPlot(plot, chart);
  const QSize size(kPictureWidth, int(std::lround(kPictureWidth / plot.aspect)));
  return BytesOf(chart, size, extension);
}

bool WritePicture(const Plot& plot, const std::filesystem::path& path) {
  const QByteArray bytes = PictureBytes(plot, path.extension().string());
  return !bytes.isEmpty() && WriteBytes(bytes, path);
}

}  // namespace quorval
