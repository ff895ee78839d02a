#include "desktop/start_window.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <array>

#include "app/main_menu.h"
#include "app/project_files.h"
#include "app/recovery.h"
#include "desktop/mnemonics.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

constexpr int kShownMilliseconds = 2500;
constexpr QSize kSize(520, 300);
constexpr QRect kPlot(40, 130, 440, 140);
constexpr int kMostOffers = 4;  // the others come at the next start
constexpr int kOfferMargin = 16;
constexpr QColor kInk(0x18, 0x38, 0x60);

// Places in the decorative plot, in hundredths of its width and height.
constexpr std::array<QPoint, 16> kPoints{{
    {5, 9},
    {11, 8},
    {16, 22},
    {22, 17},
    {28, 33},
    {34, 29},
    {40, 46},
    {46, 38},
    {52, 57},
    {58, 52},
    {64, 60},
    {70, 75},
    {76, 70},
    {83, 88},
    {89, 82},
    {95, 96},
}};

QPointF Place(QPoint hundredths) {
  return {kPlot.left() + kPlot.width() * hundredths.x() / 100.0,
          kPlot.bottom() - kPlot.height() * hundredths.y() / 100.0};
}

void DrawScatter(QPainter& painter) {
  painter.setPen(QPen(QColor(0x80, 0x90, 0xA0), 1.5));
  painter.drawLine(kPlot.topLeft(), kPlot.bottomLeft());
  painter.drawLine(kPlot.bottomLeft(), kPlot.bottomRight());
  painter.setPen(QPen(QColor(0xC0, 0x50, 0x30), 2));
  painter.drawLine(Place({0, 0}), Place({100, 98}));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x20, 0x60, 0xA0));
  for (QPoint point : kPoints) painter.drawEllipse(Place(point), 4.5, 4.5);
}

}  // namespace

StartWindow::StartWindow(ProjectFiles& files, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen), files_(files) {
  setObjectName("start");
  setAttribute(Qt::WA_DeleteOnClose);
  setFixedSize(kSize);
  if (const auto copies = files.Kept(); !copies.empty())
    Offer(copies);
  else
    QTimer::singleShot(kShownMilliseconds, this, &QWidget::close);
  move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
}

void StartWindow::Offer(const std::vector<std::filesystem::path>& copies) {
  setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);  // it takes the keys
  auto* const lines = new QVBoxLayout(this);
  lines->setContentsMargins(kPlot.left(), kSize.height(), kPlot.left(), kOfferMargin);
  for (const auto& copy : copies) {
    MakeOffer(copy, *lines);
    if (++offers_ == kMostOffers) break;
  }
  setFixedHeight(lines->sizeHint().height());
  GiveMnemonics(*this);
}

void StartWindow::MakeOffer(const std::filesystem::path& copy, QVBoxLayout& lines) {
  auto* const offer = new QWidget;
  auto* const label = new QLabel(ToQt(CaptionOf(copy)));
  QPalette ink = label->palette();
  ink.setColor(QPalette::WindowText, kInk);  // the paper is light, whatever the desktop's colours
  label->setPalette(ink);
  auto* const recover = new QPushButton("Recover");
  auto* const discard = new QPushButton("Discard");
  recover->setObjectName("recover");
  discard->setObjectName("discard");
  auto* const line = new QHBoxLayout(offer);
  line->setContentsMargins({});
  line->addWidget(label, 1);
  line->addWidget(recover);
  line->addWidget(discard);
  lines.addWidget(offer);
  connect(recover, &QPushButton::clicked, this, [this, copy, offer] {
    files_.Recover(copy);
    emit Recovered();
    if (!std::filesystem::exists(copy)) CloseAfter(*offer);
  });
  // What is gone is gone: the button is pressed twice.
  connect(discard, &QPushButton::clicked, this, [this, copy, offer, discard] {
    if (discard->objectName() == "discard") {
      discard->setObjectName("discard-for-good");
      return discard->setText("&Discard for good");
    }
    files_.Decline(copy);
    CloseAfter(*offer);
  });
}

void StartWindow::CloseAfter(QWidget& offer) {
  offer.setEnabled(false);
  if (--offers_ == 0) close();
}

void StartWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), QColor(0xFA, 0xFB, 0xFD));
  painter.setPen(QColor(0x80, 0x90, 0xA0));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  QFont font = painter.font();
  painter.setPen(kInk);
  font.setPixelSize(38);
  font.setBold(true);
  painter.setFont(font);
  painter.drawText(QRect(40, 22, 440, 50), Qt::AlignLeft | Qt::AlignVCenter, ToQt(kProductName));
  font.setPixelSize(15);
  font.setBold(false);
  painter.setFont(font);
  painter.drawText(QRect(40, 76, 460, 30), Qt::AlignLeft | Qt::AlignVCenter, ToQt(kProductLine));
  DrawScatter(painter);
}

void StartWindow::mousePressEvent(QMouseEvent*) { close(); }

void StartWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) close();
}

}  // namespace quorval
