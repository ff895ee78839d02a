#include "painting/page_painter.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <algorithm>
#include <array>
#include <limits>

#include "painting/byte_file.h"
#include "painting/cell_text.h"
#include "painting/page_layout.h"
#include "painting/qt_text.h"
#include "results/page_text.h"

namespace quorval {
namespace {

constexpr double kFontSize = 9, kLeastFontSize = 6.5, kPadding = 3;
constexpr double kGridLine = 0.4, kBorderLine = 1;
constexpr QRgb kGridInk = 0xFFB0B0B0;
constexpr double kPaperEdge = 0.5;  // centimetres, which printers leave free
constexpr double kPointsPerTwip = 1 / 20.0;
constexpr int kPdfDpi = 1200;

// The fonts of a page as the device has them; lengths in points.
class PageFonts {
 public:
  PageFonts(QPagedPaintDevice& device, double size)
      : scale_(device.logicalDpiY() / 72.0),
        fonts_{Font(size, false, false), Font(size, true, false), Font(size, false, true),
               Font(size, true, true)},
        metrics_{Metrics(0, device), Metrics(1, device), Metrics(2, device), Metrics(3, device)} {}

  // Device units a point.
  double Scale() const { return scale_; }
  const QFont& Of(const CellLook& look) const { return fonts_[Index(look)]; }
  double LineHeight() const { return metrics_[0].lineSpacing() / scale_; }
  double CharacterWidth() const { return metrics_[0].horizontalAdvance(u'0') / scale_; }
  double Width(const QString& text, const CellLook& look) const {
    return metrics_[Index(look)].horizontalAdvance(text) / scale_;
  }
  QString Elided(const QString& text, const CellLook& look, double width) const {
    return metrics_[Index(look)].elidedText(text, Qt::ElideRight, width * scale_);
  }

 private:
  static std::size_t Index(const CellLook& look) {
    return (look.bold ? 1U : 0U) + (look.italic ? 2U : 0U);
  }
  static QFont Font(double size, bool bold, bool italic) {
    QFont font;
    font.setPointSizeF(size);
    font.setBold(bold);
    font.setItalic(italic);
    return font;
  }
  QFontMetricsF Metrics(std::size_t index, QPagedPaintDevice& device) const {
    return {fonts_[index], &device};
  }

  double scale_;
  std::array<QFont, 4> fonts_;
  std::array<QFontMetricsF, 4> metrics_;
};

int LinesOf(const std::string& codes) {
  const PageText text = ReadPageCodes(codes, 1);
  const auto lines = [](const std::string& part) {
    return part.empty() ? 0 : static_cast<int>(std::ranges::count(part, '\n')) + 1;
  };
  return std::max({lines(text.left), lines(text.centre), lines(text.right)});
}

// Paints one job.  The painter's unit is the device's; all lengths here are points.
class JobPainter {
 public:
  JobPainter(const PrintJob& job, const QLocale& locale, QPagedPaintDevice& device,
             QPainter& painter)
      : job_(job), locale_(locale), painter_(painter), fonts_(device, kFontSize) {
    const QSizeF paper = device.pageLayout().fullRect(QPageLayout::Point).size();
    const double header = LinesOf(job.header) * fonts_.LineHeight();
    const double footer = LinesOf(job.footer) * fonts_.LineHeight();
    body_ = QRectF({0, 0}, paper)
                .adjusted(job.margins.left * kPointsPerTwip,
                          std::max(job.margins.top * kPointsPerTwip, header),
                          -job.margins.right * kPointsPerTwip,
                          -std::max(job.margins.bottom * kPointsPerTwip, footer));
    LayOut();
    // A sheet that is but little too wide is made smaller, so that its rows stay together.
    const double fit = 0.99 * kFontSize * body_.width() / WholeWidth();
    if (layout_.columns.size() > 1 && fit >= kLeastFontSize) {
      fonts_ = PageFonts(device, fit);
      LayOut();
    }
  }

  int Pages() const { return layout_.Pages(); }

  // Pages count from 1, down the sheet and then beside it.
  void PaintPage(int page) {
    PaintPageTexts(page);
    PaintPlacedTexts();
    if (layout_.columns.empty()) return;
    const auto index = static_cast<std::size_t>(page - 1);
    columns_ = layout_.columns[index / layout_.rows.size()];
    rows_ = layout_.rows[index % layout_.rows.size()];
    PaintBackgrounds();
    if (job_.grid_lines) PaintGridLines();
    for (int row = rows_.first; row <= rows_.last; ++row)
      for (int column = columns_.first; column <= columns_.last; ++column)
        PaintCell(column, row, job_.grid->At(column, row));
    if (job_.border) {
      painter_.setBrush(Qt::NoBrush);
      painter_.setPen(Pen(Qt::black, kBorderLine));
      painter_.drawRect(OnDevice(Area(columns_, rows_)));
    }
  }

 private:
  void LayOut() {
    layout_ =
        LayOutPages(job_, {.width = body_.width(),
                           .height = body_.height(),
                           .row_height = fonts_.LineHeight() + kPadding,
                           .character_width = fonts_.CharacterWidth(),
                           .text_width = [this](const Cell& cell) { return TextWidth(cell); }});
  }
  double WholeWidth() const {
    return layout_.Width({1, static_cast<int>(layout_.column_widths.size())});
  }
  double TextWidth(const Cell& cell) const {
    return fonts_.Width(ShownText(cell, locale_), cell.look) + 2 * kPadding;
  }
  QRectF OnDevice(QRectF points) const {
    const double scale = fonts_.Scale();
    return {points.x() * scale, points.y() * scale, points.width() * scale,
            points.height() * scale};
  }
  QPen Pen(const QColor& colour, double width) const {
    QPen pen(colour, width * fonts_.Scale());
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
  }
  QColor Print(QRgb colour) const {
    return job_.colour ? QColor(colour) : QColor::fromHsl(0, 0, qGray(colour));
  }

  // Where some of the page's cells stand.
  QRectF Area(Extent columns, Extent rows) const {
    return {body_.left() + layout_.Width({columns_.first, columns.first - 1}),
            body_.top() + layout_.Height({rows_.first, rows.first - 1}), layout_.Width(columns),
            layout_.Height(rows)};
  }

  void PaintPageTexts(int page) {
    const QRectF line(body_.left(), 0, body_.width(), fonts_.LineHeight());
    const double header = LinesOf(job_.header) * fonts_.LineHeight();
    PaintPageText(ReadPageCodes(job_.header, page), line.translated(0, body_.top() - header));
    PaintPageText(ReadPageCodes(job_.footer, page),
                  line.translated(0, body_.bottom() + fonts_.LineHeight() / 2));
  }
  void PaintPageText(const PageText& text, const QRectF& first_line) {
    PaintLines(text.left, first_line, Qt::AlignLeft);
    PaintLines(text.centre, first_line, Qt::AlignHCenter);
    PaintLines(text.right, first_line, Qt::AlignRight);
  }
  void PaintLines(const std::string& text, QRectF line, Qt::Alignment alignment) {
    painter_.setFont(fonts_.Of({}));
    painter_.setPen(Qt::black);
    for (const QString& part : ToQt(text).split(u'\n')) {
      painter_.drawText(OnDevice(line),
                        static_cast<int>((alignment | Qt::AlignVCenter).toInt()) | Qt::TextDontClip,
                        part);
      line.translate(0, fonts_.LineHeight());
    }
  }

  void PaintPlacedTexts() {
    if (job_.texts.empty()) return;
    constexpr double kPointsPerCentimetre = 72 / 2.54;
    const QFont font("Arial", 12, QFont::Bold);
    const QFontMetricsF metrics(font, painter_.device());
    const double scale = fonts_.Scale() * kPointsPerCentimetre;
    painter_.setFont(font);
    painter_.setPen(Qt::black);
    for (const PlacedText& placed : job_.texts) {
      double baseline = (kPaperEdge + placed.top) * scale + metrics.ascent();
      for (const QString& line : ToQt(placed.text).split(u'\n')) {
        const double middle = (painter_.device()->width() - metrics.horizontalAdvance(line)) / 2;
        painter_.drawText(QPointF(placed.left ? *placed.left * scale : middle, baseline), line);
        baseline += metrics.lineSpacing();
      }
    }
  }

  void PaintBackgrounds() {
    for (int row = rows_.first; row <= rows_.last; ++row) {
      for (int column = columns_.first; column <= columns_.last; ++column) {
        const Colour colour = job_.grid->At(column, row).look.colour;
        if (colour != kWhite)
          painter_.fillRect(OnDevice(Area({column, column}, {row, row})), Print(colour));
      }
    }
  }

  void PaintGridLines() {
    const QRectF area = Area(columns_, rows_);
    QList<QLineF> lines;
    const double scale = fonts_.Scale();
    for (int row = rows_.first; row <= rows_.last + 1; ++row) {
      const double y = (area.top() + layout_.Height({rows_.first, row - 1})) * scale;
      lines.append({area.left() * scale, y, area.right() * scale, y});
    }
    for (int column = columns_.first; column <= columns_.last + 1; ++column) {
      const double x = (area.left() + layout_.Width({columns_.first, column - 1})) * scale;
      lines.append({x, area.top() * scale, x, area.bottom() * scale});
    }
    painter_.setPen(Pen(Print(kGridInk), kGridLine));
    painter_.drawLines(lines);
  }

  void PaintCell(int column, int row, const Cell& cell) {
    if (cell.Empty()) return;
    const double width = cell.picture ? 0 : TextWidth(cell);
    int last_column = column + cell.look.span_columns - 1;
    if (last_column == column && !ShowsNumber(cell))
      last_column = LastColumnCovered(*job_.grid, layout_, column, row, width, columns_.last);
    const Extent columns{column, std::min(last_column, columns_.last)};
    const Extent rows{row, std::min(row + cell.look.span_rows - 1, rows_.last)};
    const QRectF area = Area(columns, rows);
    if (columns.last > column || rows.last > row) {  // the grid lines between
      const double inset = kGridLine;
      painter_.fillRect(OnDevice(area.adjusted(inset, inset, -inset, -inset)),
                        Print(cell.look.colour));
    }
    if (cell.picture)
      PaintPicture(*cell.picture, area);
    else
      PaintText(cell, width, area);
  }

  void PaintText(const Cell& cell, double width, const QRectF& area) {
    const QRectF inner = area.adjusted(kPadding, 0, -kPadding, 0);
    QString text = ShownText(cell, locale_);
    if (width > area.width() + 0.01) text = fonts_.Elided(text, cell.look, inner.width());
    const Qt::Alignment side = ShowsNumber(cell) ? Qt::AlignRight : Qt::AlignLeft;
    painter_.setFont(fonts_.Of(cell.look));
    painter_.setPen(Qt::black);
    painter_.drawText(OnDevice(inner),
                      int(side | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip, text);
  }

  // As large as the cell allows, in its middle.
  void PaintPicture(const std::string& bytes, const QRectF& area) {
    QImage image;
    if (!image.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), int(bytes.size())))
      return;
    if (!job_.colour) image = image.convertToFormat(QImage::Format_Grayscale8);
    const QRectF room = OnDevice(area.adjusted(kPadding, kPadding, -kPadding, -kPadding));
    QRectF place({0, 0}, QSizeF(image.size()).scaled(room.size(), Qt::KeepAspectRatio));
    place.moveCenter(room.center());
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
    painter_.drawImage(place, image);
  }

  const PrintJob& job_;
  const QLocale& locale_;
  QPainter& painter_;
  PageFonts fonts_;
  QRectF body_;  // between the margins
  PageLayout layout_;
  Extent columns_{1, 0}, rows_{1, 0};  // of the page being painted
};

// The pages to print, counted over all jobs.
Extent WantedPages(const QPagedPaintDevice& device) {
  const auto* printer = dynamic_cast<const QPrinter*>(&device);
  if (printer == nullptr || printer->printRange() != QPrinter::PageRange ||
      printer->fromPage() == 0)
    return {1, std::numeric_limits<int>::max()};
  return {printer->fromPage(), printer->toPage()};
}

}  // namespace

QPageLayout PaperOf(std::span<const PrintJob> jobs) {
  const bool lies = !jobs.empty() && jobs.front().landscape;
  return {QPageSize(QPageSize::A4), lies ? QPageLayout::Landscape : QPageLayout::Portrait, {}};
}

bool PaintJobs(std::span<const PrintJob> jobs, const QLocale& locale, QPagedPaintDevice& device,
               const GoOn& go_on) {
  QPageLayout layout = device.pageLayout();
  layout.setMode(QPageLayout::FullPageMode);  // the margins are the jobs' own
  device.setPageLayout(layout);
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const Extent wanted = WantedPages(device);
  int pages = 0;
  for (const PrintJob& job : jobs) {
    JobPainter sheet(job, locale, device, painter);
    for (int page = 1; page <= sheet.Pages(); ++page) {
      ++pages;
      if (pages < wanted.first || pages > wanted.last) continue;
      if (go_on && !go_on(job, page, sheet.Pages())) return painter.end();
      if (pages > wanted.first && !device.newPage()) return false;
      sheet.PaintPage(page);
    }
  }
  return painter.end();
}

QByteArray PdfBytes(std::span<const PrintJob> jobs, const QLocale& locale,
                    const std::optional<QPageLayout>& paper) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  pdf.setResolution(kPdfDpi);
  pdf.setPageLayout(paper ? *paper : PaperOf(jobs));
  if (!jobs.empty()) pdf.setTitle(ToQt(jobs.front().name));
  return PaintJobs(jobs, locale, pdf) ? bytes : QByteArray();
}

bool PrintToPdf(std::span<const PrintJob> jobs, const QLocale& locale,
                const std::filesystem::path& path, const std::optional<QPageLayout>& paper) {
  const QByteArray bytes = PdfBytes(jobs, locale, paper);
  return !bytes.isEmpty() && WriteBytes(bytes, path);
}

}  // namespace quorval
