#include "desktop/qt_platform.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QMessageBox>
#include <QSettings>

#include "desktop/caption.h"
#include "desktop/help_window.h"
#include "desktop/print_preview.h"
#include "painting/byte_file.h"
#include "painting/picture.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

constexpr std::string_view kManualFolder = "DOCQUORVAL.hlp";

QString SettingKey(std::string_view key) { return "Settings/" + ToQt(key); }

// "Excel file (*.xls)|*.xls" as Qt writes it: one pair of brackets with the pattern, at the end.
QString QtFilter(std::string_view filter) {
  const QStringList parts = ToQt(filter).split('|');
  const QString brackets = "(" + parts.last() + ")";
  return parts.first().endsWith(brackets) ? parts.first() : parts.first() + " " + brackets;
}

// Only Qt's own dialog has room for it, below the names.
QCheckBox* AddOption(QFileDialog& dialog, const FileQuestion& question) {
  if (question.option.empty()) return nullptr;
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  auto* const box = new QCheckBox(ToQt(question.option), &dialog);
  box->setChecked(*question.option_chosen);
  if (auto* const grid = qobject_cast<QGridLayout*>(dialog.layout()))
    grid->addWidget(box, grid->rowCount(), 0, 1, -1);
  return box;
}

std::optional<std::filesystem::path> Ask(const FileQuestion& question,
                                         QFileDialog::AcceptMode mode) {
  QFileDialog dialog(QApplication::activeWindow(), ToQt(question.title),
                     ToQt(question.folder.string()));
  dialog.setAcceptMode(mode);
  const QCheckBox* const option = AddOption(dialog, question);
  dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                     : QFileDialog::AnyFile);
  QStringList filters;
  for (const std::string& filter : question.filters) filters << QtFilter(filter);
  dialog.setNameFilters(filters);
  dialog.setDefaultSuffix(ToQt(question.default_extension));
  if (!question.proposed_name.empty()) dialog.selectFile(ToQt(question.proposed_name));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  if (option != nullptr) *question.option_chosen = option->isChecked();
  return FromQt(dialog.selectedFiles().first());
}

}  // namespace

QtPlatform::QtPlatform(const std::filesystem::path& help_folder) : help_folder_(help_folder) {}

QtPlatform::~QtPlatform() = default;

Answer QtPlatform::Show(const MessageBox& box) {
  QMessageBox window(QApplication::activeWindow());
  window.setTextFormat(Qt::PlainText);
  window.setWindowTitle(ToQt(box.title));
  window.setText(ToQt(box.text));
  window.setInformativeText(ToQt(box.beside));
  window.setIcon(box.critical ? QMessageBox::Critical : QMessageBox::NoIcon);
  const bool asks = box.buttons != Buttons::kOk;
  window.setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  if (asks) window.setEscapeButton(QMessageBox::No);
  if (auto* const grid = qobject_cast<QGridLayout*>(window.layout()))
    grid->addItem(new QSpacerItem(TitleWidth(window), 0), grid->rowCount(), 0, 1, -1);
  const int pressed = window.exec();
  if (!asks) return Answer::kOk;
  return pressed == QMessageBox::Yes ? Answer::kYes : Answer::kNo;
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
  return Ask(question, QFileDialog::AcceptOpen);
}

std::optional<std::filesystem::path> QtPlatform::AskSave(const FileQuestion& question) {
  return Ask(question, QFileDialog::AcceptSave);
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
  const int value = QSettings().value(SettingKey(key)).toInt(&whole);
  return whole ? std::optional(value) : std::nullopt;
}

void QtPlatform::SetSetting(std::string_view key, int value) {
  QSettings().setValue(SettingKey(key), value);
}

bool QtPlatform::OpenHelp(std::string_view file, bool search) {
  const std::filesystem::path path = help_folder_ / file;
  const bool contents = std::filesystem::is_directory(path);
  if (!std::filesystem::exists(contents ? path / "contents.md" : path)) return false;
  if (!help_) help_ = std::make_unique<HelpWindow>(help_folder_ / kManualFolder);
  if (search)
    help_->ShowSearch();
  else if (contents)
    help_->ShowContents();
  else
    help_->ShowPage(std::filesystem::relative(path, help_folder_ / kManualFolder));
  help_->show();
  help_->raise();
  help_->activateWindow();
  return true;
}

}  // namespace quorval
