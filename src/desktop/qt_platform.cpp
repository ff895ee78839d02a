#include "desktop/qt_platform.h"

#include <QApplication>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>

#include "desktop/file_dialog.h"
#include "desktop/help_window.h"
#include "desktop/print_preview.h"
#include "painting/byte_file.h"
#include "painting/picture.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

constexpr std::string_view kManualFolder = "DOCQUORVAL.hlp";

QString SettingKey(std::string_view key) { return "Settings/" + ToQt(key); }

// Named, since nothing else of the program or of Qt may be kept where settings are.
QSettings Settings() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return {folder + "/Quorval/Quorval.conf", QSettings::IniFormat};
}

void BringForward(QWidget& window) {
  window.show();
  window.raise();
  window.activateWindow();
}

// A dialog stays above its parent, a window of no parent goes where the user wants it.
void MoveTo(QWidget& window, QWidget* parent) {
  const QRect place = window.geometry();
  const bool placed = window.isVisible();  // else the desktop finds it a place
  window.setParent(parent, parent != nullptr ? Qt::Dialog | Qt::WindowMinMaxButtonsHint |
                                                   Qt::WindowCloseButtonHint
                                             : Qt::Window);
  if (placed) window.setGeometry(place);
}

// Left of the box, so that both can be read, where there is room for a page.
void PlaceBeside(HelpWindow& help, const QWidget& box) {
  constexpr int kNarrowest = 480, kFrame = 40;
  const QRect screen = box.screen()->availableGeometry();
  const int width = box.frameGeometry().left() - screen.left() - kFrame / 2;
  if (width < kNarrowest) return;
  help.setGeometry(screen.left() + kFrame / 4, screen.top() + kFrame, std::min(width, help.width()),
                   std::min(help.height(), screen.height() - 2 * kFrame));
  help.ShowPageAlone();
}

}  // namespace

QtPlatform::QtPlatform(const std::filesystem::path& help_folder) : help_folder_(help_folder) {
  StoreNoDialogSettings();
  SetBoxHelp(this);
}

QtPlatform::~QtPlatform() { SetBoxHelp(nullptr); }

Answer QtPlatform::Show(const MessageBox& box) {
  return ShowBox(QApplication::activeWindow(), box);
}

void QtPlatform::ShowWaitPointer(bool on) {
  if (on == wait_pointer_) return;
  wait_pointer_ = on;
  if (on)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

std::optional<std::filesystem::path> QtPlatform::AskOpen(const FileQuestion& question) {
  return AskOpenFile(QApplication::activeWindow(), question);
}

std::optional<std::filesystem::path> QtPlatform::AskSave(const FileQuestion& question) {
  return AskSaveFile(QApplication::activeWindow(), question);
}

bool QtPlatform::Print(std::span<const PrintJob> jobs) {
  return ShowPrintPreview(QApplication::activeWindow(), jobs);
}

bool QtPlatform::WritePicture(const Plot& plot, const std::filesystem::path& path) {
  return quorval::WritePicture(plot, path);
}

bool QtPlatform::KeepPicture(std::string_view svg, const std::filesystem::path& path) {
  return WriteBytes(QByteArray(svg.data(), static_cast<qsizetype>(svg.size())), path);
}

std::optional<int> QtPlatform::Setting(std::string_view key) {
  bool whole = false;
  const int value = Settings().value(SettingKey(key)).toInt(&whole);
  return whole ? std::optional(value) : std::nullopt;
}

void QtPlatform::SetSetting(std::string_view key, int value) {
  Settings().setValue(SettingKey(key), value);
}

bool QtPlatform::OpenHelp(std::string_view file, bool search) {
  const std::filesystem::path path = help_folder_ / file;
  const bool contents = std::filesystem::is_directory(path);
  if (!std::filesystem::exists(contents ? path / "contents.md" : path)) return false;
  HelpWindow& help = Help();
  if (search)
    help.ShowSearch();
  else if (contents)
    help.ShowContents();
  else
    help.ShowPage(std::filesystem::relative(path, help_folder_ / kManualFolder));
  BringForward(help);
  return true;
}

HelpWindow& QtPlatform::Help() {
  if (!help_) help_ = std::make_unique<HelpWindow>(help_folder_ / kManualFolder);
  return *help_;
}

bool QtPlatform::Tells(const std::string& text) {
  return std::filesystem::exists(help_folder_ / kManualFolder / kMessagesPage) &&
         Help().manual().TellsMessage(text);
}

// As a window of the box: a modal box blocks all others.
void QtPlatform::ShowEntry(const std::string& text, QWidget& box) {
  HelpWindow& help = Help();
  const bool read = help.isVisible();
  if (help.parentWidget() != &box) MoveTo(help, &box);
  if (!read) PlaceBeside(help, box);
  BringForward(help);
  help.ShowMessageEntry(text);
}

void QtPlatform::Release(QWidget& box) {
  if (!help_ || help_->parentWidget() != &box) return;
  const bool read = help_->isVisible();
  MoveTo(*help_, nullptr);
  if (!read) return;
  help_->setAttribute(Qt::WA_ShowWithoutActivating);  // the keys go where they went before
  help_->show();
  help_->setAttribute(Qt::WA_ShowWithoutActivating, false);
}

}  // namespace quorval
