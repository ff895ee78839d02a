#include "desktop/file_dialog.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QSettings>
#include <algorithm>
#include <system_error>

#include "core/file_name.h"
#include "desktop/message_box.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

QString& LastFolder() {
  static QString folder;
  return folder;
}

// "Excel file (*.xls)|*.xls" as Qt writes it: one pair of brackets with the patterns, at the end.
QString QtFilter(const std::string& text) {
  const FileFilter filter = FilterFrom(text);
  const QString caption = ToQt(filter.caption);
  const QString brackets = "(" + ToQt(filter.patterns).replace(u';', u' ') + ")";
  return caption.endsWith(brackets) ? caption : caption + " " + brackets;
}

void Prepare(QFileDialog& dialog, const FileQuestion& question) {
  QStringList filters;
  for (const std::string& filter : question.filters) filters << QtFilter(filter);
  dialog.setNameFilters(filters);
  const QString folder = ToQt(question.folder.string());
  if (const QString start = folder.isEmpty() ? LastFolder() : folder; QFileInfo(start).isDir())
    dialog.setDirectory(start);
  if (!question.proposed_name.empty()) dialog.selectFile(ToQt(question.proposed_name));
}

// The name that was chosen; none for a Cancel.
std::optional<std::filesystem::path> Run(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const QString chosen = dialog.selectedFiles().first();  // perhaps typed, with another folder
  LastFolder() = QFileInfo(chosen).absolutePath();
  return FromQt(chosen);
}

// Only Qt's own dialog has room for it, below the names.
QCheckBox* AddOption(QFileDialog& dialog, const FileQuestion& question) {
  if (question.option.empty()) return nullptr;
  auto* const box = new QCheckBox(ToQt(question.option), &dialog);
  box->setChecked(*question.option_chosen);
  if (auto* const grid = qobject_cast<QGridLayout*>(dialog.layout()))
    grid->addWidget(box, grid->rowCount(), 0, 1, -1);
  return box;
}

bool MayBeReplaced(QWidget* parent, const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return true;
  return ShowBox(parent, {.text = "A file of this name is there already. Replace it?",
                          .title = "Replace file",
                          .buttons = Buttons::kYesNo,
                          .critical = true,
                          .beside = path.filename().string()}) == Answer::kYes;
}

}  // namespace

std::optional<std::filesystem::path> AskOpenFile(QWidget* parent, const FileQuestion& question) {
  QFileDialog dialog(parent, ToQt(question.title));
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::ExistingFile);
  Prepare(dialog, question);
  return Run(dialog);
}

std::optional<std::filesystem::path> AskSaveFile(QWidget* parent, const FileQuestion& question) {
  QFileDialog dialog(parent, ToQt(question.title));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  // Asked below, for the name that will be written.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  Prepare(dialog, question);
  const QCheckBox* const option = AddOption(dialog, question);
  while (const auto typed = Run(dialog)) {
    const auto chosen =
        std::max(qsizetype{0}, dialog.nameFilters().indexOf(dialog.selectedNameFilter()));
    const auto path = CompletedName(*typed, question.filters, static_cast<std::size_t>(chosen),
                                    question.default_extension);
    if (!MayBeReplaced(&dialog, path)) continue;
    if (option != nullptr) *question.option_chosen = option->isChecked();
    return path;
  }
  return std::nullopt;
}

// Nothing can be written below a device.  The program's own settings name their file.
void StoreNoDialogSettings() {
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

}  // namespace quorval
