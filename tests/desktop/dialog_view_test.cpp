#include "desktop/dialog_view.h"
#include "desktop/mnemonics.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include "analyses/registry.h"
#include "desktop/field_text.h"

namespace quorval {
namespace {

template <class Editor>
Editor& In(const QWidget& view, const char* name) {
  auto* const editor = view.findChild<Editor*>(name);
  if (editor == nullptr) throw std::out_of_range(name);
  return *editor;
}

bool ShowsLabel(const QWidget& view, const QString& text) {
  const auto labels = view.findChildren<QLabel*>();
  return std::ranges::any_of(labels, [&](const QLabel* label) {
    return Unmarked(label->text()) == text && !label->isHidden();
  });
}

void Retype(QLineEdit& editor, const QString& text) {
  editor.selectAll();
  QTest::keyClicks(&editor, text);
}

// --- A dialog of every kind of field

constexpr Choice kLimitKinds[] = {{"none", ""}, {"constant", "Constant"}, {"user", "By user"}};
constexpr Field kInner{.key = "replications", .caption = "Replications:", .initial = "200"};
constexpr Field kInnerFields[] = {kInner};
constexpr Dialog kNested{.window = "nested", .title = "More", .fields = kInnerFields};
constexpr Field kAnyFields[] = {
    {.key = "limits",
     .kind = FieldKind::kChoice,
     .group = "Limits:",
     .heading = "Acceptance",
     .initial = "none",
     .choices = kLimitKinds},
    {.key = "limit",
     .caption = "+/-",
     .initial = "0.5",
     .enabled = {When{"limits", "constant"}},
     .beside = {"limits", "constant"}},
    {.key = "users",
     .group = "Users:",
     .caption = "x & y:",
     .initial = "a,b",
     .shown = {When{"limits", "user"}}},
    {.kind = FieldKind::kButton, .caption = "More ...", .opens = &kNested},
};
constexpr Dialog kAnyDialog{.window = "any", .title = "  Any", .fields = kAnyFields, .ok = "Run"};
static_assert(WellFormed(kAnyDialog));

class AnyDialogTest : public testing::Test {
 protected:
  AnyDialogTest() { view.show(); }
  Form form{kAnyDialog};
  DialogView view{form, kAnyDialog, nullptr, QLocale("de_DE")};
};

TEST_F(AnyDialogTest, GreysAndHidesByItsConditions) {
  auto& limit = In<QLineEdit>(view, "limit");
  auto& users = In<QLineEdit>(view, "users");
  EXPECT_EQ(view.findChildren<QRadioButton*>().size(), 2);
  EXPECT_FALSE(limit.isEnabled());
  EXPECT_TRUE(users.parentWidget()->isHidden());  // an empty frame would be left
  In<QRadioButton>(view, "limits=constant").click();
  EXPECT_TRUE(limit.isEnabled());
  In<QRadioButton>(view, "limits=user").click();
  EXPECT_FALSE(limit.isEnabled());
  EXPECT_TRUE(users.isVisible());
  EXPECT_EQ(form.TextOf("limits"), "user");
}

TEST_F(AnyDialogTest, SetsAFieldBesideItsChoice) {
  auto& limit = In<QLineEdit>(view, "limit");
  auto& choice = In<QRadioButton>(view, "limits=constant");
  QApplication::processEvents();
  EXPECT_EQ(limit.geometry().center().y() / 8, choice.geometry().center().y() / 8);
  EXPECT_GT(limit.geometry().left(), choice.geometry().right());
}

TEST_F(AnyDialogTest, ShowsAndReadsNumbersByTheLocale) {
  EXPECT_EQ(In<QLineEdit>(view, "limit").text(), "0,5");
  In<QRadioButton>(view, "limits=constant").click();
  Retype(In<QLineEdit>(view, "limit"), "1,25");
  EXPECT_EQ(form.TextOf("limit"), "1.25");
  EXPECT_EQ(In<QLineEdit>(view, "limit").text(), "1,25");
  EXPECT_EQ(form.TextOf("users"), "a,b");
}

TEST_F(AnyDialogTest, KeepsOrResetsTheFieldsOfANestedDialog) {
  const auto type_into_nested = [&](const QString& text) -> DialogView& {
    In<QPushButton>(view, "nested").click();
    auto& nested = *view.findChild<DialogView*>("nested");
    EXPECT_TRUE(nested.isModal());
    Retype(In<QLineEdit>(nested, "replications"), text);
    return nested;
  };
  In<QPushButton>(type_into_nested("300"), "ok").click();
  EXPECT_EQ(form.TextOf("replications"), "300");
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  In<QRadioButton>(view, "limits=user").click();
  QTest::keyClick(&type_into_nested("400"), Qt::Key_Escape);
  EXPECT_EQ(form.TextOf("replications"), "200");
  EXPECT_EQ(form.TextOf("limits"), "user");
}

TEST_F(AnyDialogTest, PressesOkByEnterAndCancelByEscapeOrItsFrame) {
  QSignalSpy ok(&view, &DialogView::OkPressed), cancelled(&view, &DialogView::Cancelled);
  EXPECT_EQ(In<QPushButton>(view, "ok").text(), "Run");
  QTest::keyClick(&In<QLineEdit>(view, "limit"), Qt::Key_Return);
  QTest::keyClick(&view, Qt::Key_Return);
  EXPECT_GE(ok.size(), 1);
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_EQ(cancelled.size(), 1);
  view.close();
  EXPECT_EQ(cancelled.size(), 2);
}

// --- The dialog of the method comparisons

TEST(OlsDialogTest, RenamesAndShowsFieldsByTheMode) {
  const Dialog& dialog = *regression::kOls.dialog;
  Form form(dialog);
  DialogView view(form, dialog, nullptr, QLocale::c());
  view.show();
  EXPECT_EQ(view.windowTitle(), "  Ordinary Least-Squares Regression Analysis");
  EXPECT_TRUE(ShowsLabel(view, "x:"));
  EXPECT_FALSE(In<QLineEdit>(view, "third-column").isVisible());
  In<QRadioButton>(view, "mode=duplicate").click();
  EXPECT_TRUE(ShowsLabel(view, "x1:"));
  EXPECT_TRUE(ShowsLabel(view, "y1:"));
  EXPECT_TRUE(In<QLineEdit>(view, "third-column").isVisible());
  EXPECT_TRUE(In<QCheckBox>(view, "plot-bands").isChecked());
  In<QCheckBox>(view, "plot-bands").click();
  EXPECT_EQ(form.TextOf("plot-bands"), "off");
}

// Every dialog of every analysis can be shown, and its widgets hold the form's texts.
TEST(AllDialogsTest, CanBeShown) {
  for (const MenuEntry& entry : Analyses()) {
    Form form(*entry.analysis->dialog);
    DialogView view(form, *entry.analysis->dialog, nullptr, QLocale::c());
    view.show();
    for (const Field& field : entry.analysis->dialog->fields) {
      if (field.kind != FieldKind::kText) continue;
      const std::string key(field.key);
      EXPECT_EQ(In<QLineEdit>(view, key.c_str()).text().toStdString(), form.TextOf(key));
    }
  }
}

// --- The decimal sign in fields

TEST(FieldTextTest, TakesTheLocalesSignInTheNumberThatATextStartsWith) {
  struct Sample {
    const char* locale;
    const char* typed;
    const char* stored;
  };
  constexpr Sample kSamples[] = {
      {"de_DE", "3,5", "3.5"},
      {"de_DE", " -,5", " -.5"},
      {"de_DE", "3,5x", "3.5x"},
      {"de_DE", "3,", "3."},
      {"de_DE", "3.5", "3.5"},
      {"de_DE", "a,5", "a,5"},
      {"de_DE", "Males, 20", "Males, 20"},
      {"de_DE", ",", ","},
      {"en_US", "3,5", "3,5"},
      {"en_US", "3.5", "3.5"},
      {"C", ".5", ".5"},
  };
  for (const auto& [locale, typed, stored] : kSamples)
    EXPECT_EQ(StoredFieldText(typed, QLocale(locale)), stored) << locale << " " << typed;
}

}  // namespace
}  // namespace quorval
