#include "desktop/help_window.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

#include "desktop/mnemonics.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

constexpr int kFileRole = Qt::UserRole;

std::filesystem::path FileOf(const QVariant& file) { return FromQt(file.toString()); }

}  // namespace

HelpWindow::HelpWindow(const std::filesystem::path& folder, QWidget* parent)
    : QMainWindow(parent),
      folder_(folder),
      manual_(folder),
      page_(new QTextBrowser),
      tabs_(new QTabWidget) {
  setObjectName("help");
  setWindowTitle("Quorval Help");
  resize(980, 680);
  tabs_->addTab(MakeContents(), "Contents");
  tabs_->addTab(MakeSearch(), "Search");
  page_->setOpenExternalLinks(true);
  page_->document()->setDocumentMargin(16);
  auto* const splitter = new QSplitter;
  splitter->setObjectName("splitter");
  splitter->addWidget(tabs_);
  splitter->addWidget(page_);
  splitter->setSizes({280, 700});
  splitter->setStretchFactor(1, 1);
  setCentralWidget(splitter);
  MakeToolbar();
  contents_->setAccessibleName("Contents");
  words_->setAccessibleName(words_->placeholderText());
  hits_->setAccessibleName("Pages found");
  page_->setAccessibleName("Page");
  GiveMnemonics(*this);
}

void HelpWindow::ShowPage(const std::filesystem::path& file) {
  const QString path = ToQt((folder_ / file).string());
  page_->setSource(QUrl::fromLocalFile(path), QTextDocument::MarkdownResource);
  const QString relative = ToQt(file.string());
  const auto items = contents_->findItems("*", Qt::MatchWildcard | Qt::MatchRecursive);
  for (QTreeWidgetItem* item : items)
    if (item->data(0, kFileRole).toString() == relative) contents_->setCurrentItem(item);
}

void HelpWindow::ShowMessageEntry(const std::string& text) {
  constexpr int kAbove = 60;  // pixels, for what stands above the entry
  tabs_->setCurrentIndex(0);
  ShowPage(kMessagesPage);
  const QString words = "\"" + ToQt(text).trimmed() + "\"";
  page_->moveCursor(QTextCursor::Start);
  constexpr auto kAsWritten = QTextDocument::FindCaseSensitively;
  if (!page_->find(words, kAsWritten) && !page_->find(words.simplified(), kAsWritten)) return;
  QScrollBar& bar = *page_->verticalScrollBar();
  bar.setValue(bar.value() + page_->cursorRect().top() - kAbove);
}

void HelpWindow::ShowPageAlone() { findChild<QSplitter*>("splitter")->setSizes({0, width()}); }

void HelpWindow::ShowContents() {
  tabs_->setCurrentIndex(0);
  ShowPage("contents.md");
}

void HelpWindow::ShowSearch() {
  if (page_->source().isEmpty()) ShowPage("contents.md");
  tabs_->setCurrentIndex(1);
  words_->setFocus();
}

QWidget* HelpWindow::MakeContents() {
  contents_ = new QTreeWidget;
  contents_->header()->hide();
  std::vector<QTreeWidgetItem*> path{contents_->invisibleRootItem()};
  for (const ManualEntry& entry : manual_.entries()) {
    path.resize(std::min(path.size(), static_cast<std::size_t>(entry.depth) + 1));
    auto* const item = new QTreeWidgetItem(path.back(), {ToQt(entry.title)});
    item->setData(0, kFileRole, ToQt(entry.file));
    path.push_back(item);
  }
  contents_->expandAll();
  const auto show = [this](const QTreeWidgetItem* item) {
    if (const auto file = FileOf(item->data(0, kFileRole)); !file.empty()) ShowPage(file);
  };
  connect(contents_, &QTreeWidget::itemClicked, this, show);
  connect(contents_, &QTreeWidget::itemActivated, this, show);
  return contents_;
}

QWidget* HelpWindow::MakeSearch() {
  words_ = new QLineEdit;
  words_->setPlaceholderText("Words to find");
  words_->setClearButtonEnabled(true);
  hits_ = new QListWidget;
  hits_->setWordWrap(true);
  auto* const panel = new QWidget;
  auto* const layout = new QVBoxLayout(panel);
  layout->addWidget(words_);
  layout->addWidget(hits_);
  connect(words_, &QLineEdit::textChanged, this, &HelpWindow::Search);
  const auto show = [this](const QListWidgetItem* item) {
    if (const auto file = FileOf(item->data(kFileRole)); !file.empty()) ShowPage(file);
  };
  connect(hits_, &QListWidget::itemClicked, this, show);
  connect(hits_, &QListWidget::itemActivated, this, show);
  return panel;
}

void HelpWindow::MakeToolbar() {
  QToolBar* const bar = addToolBar("Navigation");
  bar->setMovable(false);
  const auto add = [&](const QString& icon, const QString& caption, auto slot) {
    return bar->addAction(QIcon(":/icons/" + icon), caption, page_, slot);
  };
  QAction* const back = add("back.svg", "Back", &QTextBrowser::backward);
  QAction* const forward = add("forward.svg", "Forward", &QTextBrowser::forward);
  back->setShortcut(QKeySequence::Back);
  forward->setShortcut(QKeySequence::Forward);
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::Search(const QString& words) {
  hits_->clear();
  for (const ManualHit& hit : manual_.Search(FromQt(words))) {
    auto* const item = new QListWidgetItem(ToQt(hit.entry->title + "\n" + hit.excerpt), hits_);
    item->setData(kFileRole, ToQt(hit.entry->file));
  }
  if (hits_->count() > 0 || words.trimmed().isEmpty()) return;
  auto* const none = new QListWidgetItem("No page holds these words.", hits_);
  none->setFlags(Qt::NoItemFlags);
}

}  // namespace quorval
