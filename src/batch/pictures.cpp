#include "batch/pictures.h"

#ifdef QUORVAL_PICTURES

#include <QApplication>
#include <QLocale>
#include <QTemporaryDir>
#include <iostream>

#include "formats/file_error.h"
#include "formats/replaced_file.h"
#include "painting/page_painter.h"
#include "painting/picture.h"

namespace quorval {
namespace {

// Standard error is for the message boxes: Qt's remarks on its surroundings do not go there.
void PassOnFailures(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << text.toStdString() << '\n';
}

// No display is asked for, whatever the environment says, and numbers hold the point.
bool Prepare() {
  qInstallMessageHandler(PassOnFailures);
  QLocale::setDefault(QLocale::c());
  return qputenv("QT_QPA_PLATFORM", "offscreen");
}

void ReplaceBy(const QByteArray& bytes, const std::filesystem::path& path) {
  if (bytes.isEmpty()) throw FileError("it cannot be drawn");
  ReplaceFile(path, {bytes.data(), static_cast<std::size_t>(bytes.size())});
}

}  // namespace

struct Pictures::Drawing {
  bool prepared = Prepare();  // before the application is made
  char name[14] = "quorval-batch";
  char* arguments[2] = {name, nullptr};
  int count = 1;
  QApplication application{count, arguments};
  QTemporaryDir folder;
};

bool Pictures::Built() { return true; }

Pictures::Pictures() : drawing_(std::make_unique<Drawing>()) {}

Pictures::~Pictures() = default;

std::filesystem::path Pictures::Folder() const { return drawing_->folder.path().toStdString(); }

void Pictures::Write(const Plot& plot, const std::filesystem::path& path) {
  ReplaceBy(PictureBytes(plot, path.extension().string()), path);
}

void Pictures::Print(std::span<const PrintJob> jobs, const std::filesystem::path& path) {
  ReplaceBy(PdfBytes(jobs, QLocale::c()), path);
}

}  // namespace quorval

#else

namespace quorval {

struct Pictures::Drawing {};

bool Pictures::Built() { return false; }

Pictures::Pictures() = default;

Pictures::~Pictures() = default;

std::filesystem::path Pictures::Folder() const { return {}; }

void Pictures::Write(const Plot&, const std::filesystem::path&) {}

void Pictures::Print(std::span<const PrintJob>, const std::filesystem::path&) {}

}  // namespace quorval

#endif
