#include "editors/ConfigWizardInfo.h"
#include "config/RowChanges.h"
#include "config/RowList.h"
#include "config/SettingsDocument.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FormStructure.h"
#include "tests/support/Gestures.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// Rows with undo, and nothing else.
class PlainRows final : public SettingsDocument
{
public:
    [[nodiscard]] const RowList &rowList() const override { return rows; }
    [[nodiscard]] QString currentRowText() const override { return {}; }

    void changeRows(const std::function<void(RowChanges &)> &command) override
    {
        const RowChanges::Group group(changes);
        command(changes);
        ++steps;
    }

    RowList rows;
    RowChanges changes{rows};
    int steps = 0;
};

class ConfigWizard : public testing::Test
{
protected:
    void open(const QStringList &rows)
    {
        document.rows.setRows(rows);
        form = new ConfigWizardInfo(document, messages, &window);
        showActive(*form);
    }

    [[nodiscard]] QStringList rows() const { return document.rows.rows(); }

    /// The text field of a key, also that of a drop-down.
    [[nodiscard]] QLineEdit &field(const char *name) const
    {
        auto *found = control<QWidget>(*form, name);
        if (auto *list = qobject_cast<QComboBox *>(found))
            return *list->lineEdit();
        return *qobject_cast<QLineEdit *>(found);
    }

    [[nodiscard]] QString textOf(const char *name) const { return field(name).text(); }
    [[nodiscard]] bool isChecked(const char *name) const { return control<QCheckBox>(*form, name)->isChecked(); }

    [[nodiscard]] QString page() const
    {
        const auto *tabs = control<QTabWidget>(*form, "tbsOptions");
        return tabs->tabText(tabs->currentIndex());
    }

    void showPageOf(const QWidget &widget) const
    {
        auto *tabs = control<QTabWidget>(*form, "tbsOptions");
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->widget(i)->isAncestorOf(&widget))
                tabs->setCurrentIndex(i);
        }
    }

    /// Types in place of what a field shows.
    void type(const char *name, const QString &text) const
    {
        QLineEdit &typed = field(name);
        showPageOf(typed);
        ASSERT_TRUE(typed.isVisible()) << name;
        typed.setFocus();
        typed.selectAll();
        if (text.isEmpty())
            QTest::keyClick(&typed, Qt::Key_Delete);
        else
            QTest::keyClicks(&typed, text);
    }

    void click(const char *name) const
    {
        auto *box = control<QCheckBox>(*form, name);
        showPageOf(*box);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    }

    FakeMessages messages;
    const UseMessages use{messages};
    PlainRows document;
    QWidget window;
    QPointer<ConfigWizardInfo> form;
};

const QStringList allKeys{
    "#define DETECTIONDB c:\\a.zdb",     "#define BEHAVIORDB c:\\b.bhv", "#define BEHDBTYPE Mem",
    "#define OUTPUTFILE c:\\c.zof",      "#define EVENTLOG loghost",     "#define SYSLOG sys",
    "#define SYSLOGFACILITY 3",          "#define SYSLOGSEVERITY 4",     "#define AUTO_COUNTDOWN_TIMER 5",
    "#define MAKECONF_SENSITIVITY 7",    "#define ZENTILPRIORITY low",   "#define PRIORITY high",
    "#define MAILSERVER smtp",           "#define MAILTO you",           "#define MAILFROM me",
    "#define MAILSUBJECT \"two words\"", "#define MAILTEMPFILE c:\\t"};

TEST_F(ConfigWizard, ShowsEachSettingInItsField)
{
    open(allKeys);
    const QList<std::pair<const char *, QString>> expected{{"def_DETECTIONDB", "c:\\a.zdb"},
                                                           {"def_BEHAVIORDB", "c:\\b.bhv"},
                                                           {"def_BEHDBTYPE", "Mem"},
                                                           {"def_OUTPUTFILE", "c:\\c.zof"},
                                                           {"def_EVENTLOG", "loghost"},
                                                           {"def_SYSLOG", "sys"},
                                                           {"def_SYSLOGFACILITY", "3"},
                                                           {"def_SYSLOGSEVERITY", "4"},
                                                           {"def_AUTO_COUNTDOWN_TIMER", "5"},
                                                           {"def_MAKECONF_SENSITIVITY", "7"},
                                                           {"def_PRIORITY", "high"},
                                                           {"def_MAILSERVER", "smtp"},
                                                           {"def_MAILTO", "you"},
                                                           {"def_MAILFROM", "me"},
                                                           {"def_MAILSUBJECT", "two words"},
                                                           {"def_MAILTEMPFILE", "c:\\t"}};
    for (const auto &[name, text] : expected)
        EXPECT_EQ(textOf(name), text) << name;
    EXPECT_EQ(expected.size() + 1, int(settingKeys.size()));
    EXPECT_TRUE(isChecked("def_flag_EVENTLOG"));
    EXPECT_TRUE(isChecked("def_flag_SYSLOG"));
    EXPECT_FALSE(form->findChild<QWidget *>("def_ZENTILPRIORITY"));
}

TEST_F(ConfigWizard, IsEmptyForADocumentWithoutSettings)
{
    open({"; nothing", "c:\\ t"});
    for (const QLineEdit *each : form->findChildren<QLineEdit *>())
        EXPECT_EQ(each->text(), "") << each->objectName().toStdString();
    EXPECT_FALSE(isChecked("def_flag_EVENTLOG"));
    EXPECT_FALSE(isChecked("def_flag_SYSLOG"));
    press(*form, "cmdApply");
    EXPECT_EQ(document.steps, 0);
}

TEST_F(ConfigWizard, HasItsPagesFramesAndWords)
{
    open({});
    EXPECT_EQ(form->windowTitle(), "Configuration Wizard");
    const auto *tabs = control<QTabWidget>(*form, "tbsOptions");
    QStringList pages;
    for (int i = 0; i < tabs->count(); ++i)
        pages << tabs->tabText(i);
    EXPECT_EQ(pages, (QStringList{"Files", "Notification", "Events", "Self-ident", "Execution"}));
    // In alphabetical order: the toolkit gives children in the order in which they were put in place.
    QStringList frames;
    for (const QGroupBox *frame : form->findChildren<QGroupBox *>())
        frames << frame->title();
    frames.sort();
    EXPECT_EQ(frames,
              (QStringList{"Behavior Database", "Conf sensitivity", "Countdown", "Event Log", "Priority", "syslog"}));
    QStringList labels;
    for (const QLabel *label : form->findChildren<QLabel *>())
        labels << label->text();
    labels.sort();
    EXPECT_EQ(labels,
              (QStringList{"Behavior database", "Detection database", "Facility", "From e-mail address",
                           "Number of times to execute in self-identification mode", "Output file", "Remote server",
                           "Remote server", "SMTP server", "Severity", "Subject", "Temp file", "To e-mail address"}));
    EXPECT_EQ(control<QCheckBox>(*form, "def_flag_EVENTLOG")->text(), "Send events to NT Event Log");
    EXPECT_EQ(control<QCheckBox>(*form, "def_flag_SYSLOG")->text(), "Send events to syslog");
    const QList<std::pair<const char *, QString>> buttons{{"BrowseDB", "Browse..."},  {"BrowseB", "Browse..."},
                                                          {"BrowseOut", "Browse..."}, {"cmdOK", "OK"},
                                                          {"cmdCancel", "Cancel"},    {"cmdApply", "Apply"}};
    for (const auto &[name, caption] : buttons)
        EXPECT_EQ(control<QPushButton>(*form, name)->text(), caption) << name;
}

TEST_F(ConfigWizard, DropDownsOfferTheirValues)
{
    open({});
    const auto choices = [this](const char *name) {
        const auto *list = control<QComboBox>(*form, name);
        QStringList result;
        for (int i = 0; i < list->count(); ++i)
            result << list->itemText(i);
        return result;
    };
    EXPECT_EQ(choices("def_BEHDBTYPE"), (QStringList{"Disk", "Mem"}));
    EXPECT_EQ(choices("def_PRIORITY"), (QStringList{"idle", "lowest", "low", "normal", "high", "highest", "critical"}));
    EXPECT_EQ(choices("def_MAKECONF_SENSITIVITY"),
              (QStringList{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
}

TEST_F(ConfigWizard, ADropDownOpensAsWideAsItsWidestValue)
{
    open({});
    const auto *list = control<QComboBox>(*form, "def_PRIORITY");
    EXPECT_EQ(list->view()->minimumWidth(), QFontMetrics(list->font()).horizontalAdvance("highest") + 30);
}

TEST_F(ConfigWizard, ADropDownShowsWhatItDoesNotKnow)
{
    const QStringList unknown{"#define PRIORITY HIGH", "#define BEHDBTYPE tape", "#define MAKECONF_SENSITIVITY 11"};
    open(unknown);
    EXPECT_EQ(textOf("def_PRIORITY"), "HIGH");
    EXPECT_EQ(textOf("def_BEHDBTYPE"), "tape");
    EXPECT_EQ(textOf("def_MAKECONF_SENSITIVITY"), "11");
    press(*form, "cmdOK");
    EXPECT_EQ(rows(), unknown);
    EXPECT_EQ(document.steps, 0);
}

TEST_F(ConfigWizard, ExtraBlanksAreReadOver)
{
    open({"#define  OUTPUTFILE   c:\\out\\x.zof"});
    EXPECT_EQ(textOf("def_OUTPUTFILE"), "c:\\out\\x.zof");
}

TEST_F(ConfigWizard, AValueWithABlankIsWrittenBackQuoted)
{
    open({"#define MAILSUBJECT two words"});
    type("def_MAILTO", "\"as it");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), (QStringList{"#define MAILSUBJECT \"two words\"", "#define MAILTO \"as it"}));
    EXPECT_EQ(textOf("def_MAILSUBJECT"), "\"two words\"");
    // And so it stays.
    press(*form, "cmdApply");
    EXPECT_EQ(document.steps, 1);
}

TEST_F(ConfigWizard, AnAddressIsAddedAtTheEndAndRemovedAgain)
{
    open({"c:\\ t"});
    type("def_MAILTO", "admin@example.org");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), (QStringList{"c:\\ t", "#define MAILTO admin@example.org"}));
    type("def_MAILTO", "");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), QStringList{"c:\\ t"});
    EXPECT_TRUE(form->isVisible());
}

TEST_F(ConfigWizard, OtherLinesAreNeverTouched)
{
    const QStringList others{"# a comment", "#include x", ";#define MAILTO x", "define MAILTO y",
                             "#define OTHER  z  z"};
    open(others);
    type("def_MAILFROM", "me");
    press(*form, "cmdOK");
    EXPECT_EQ(rows(), others + QStringList{"#define MAILFROM me"});
}

TEST_F(ConfigWizard, TheOldPriorityIsNeitherWrittenNorRemoved)
{
    open({"#define  zentilpriority  low"});
    type("def_PRIORITY", "high");
    press(*form, "cmdApply");
    type("def_PRIORITY", "");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), QStringList{"#define  zentilpriority  low"});
}

TEST_F(ConfigWizard, AllIsWrittenInTheFixedOrderAsOneStep)
{
    open({});
    type("def_MAILTO", "d");
    type("def_EVENTLOG", "b");
    type("def_DETECTIONDB", "a");
    type("def_SYSLOG", "c");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(),
              (QStringList{"#define DETECTIONDB a", "#define SYSLOG c", "#define EVENTLOG b", "#define MAILTO d"}));
    EXPECT_EQ(document.steps, 1);
    static_cast<void>(document.changes.undo(-1));
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(ConfigWizard, TypingChecksTheBox)
{
    const QList<std::pair<const char *, const char *>> pairs{{"def_EVENTLOG", "def_flag_EVENTLOG"},
                                                             {"def_SYSLOG", "def_flag_SYSLOG"},
                                                             {"def_SYSLOGFACILITY", "def_flag_SYSLOG"},
                                                             {"def_SYSLOGSEVERITY", "def_flag_SYSLOG"}};
    for (const auto &[typed, checked] : pairs) {
        open({});
        type(typed, "x");
        EXPECT_TRUE(isChecked(checked)) << typed;
        form->close();
    }
    // What is read is not typed.
    open({"#define SYSLOGFACILITY 3"});
    EXPECT_FALSE(isChecked("def_flag_SYSLOG"));
}

TEST_F(ConfigWizard, AnUncheckedBoxRemovesItsLine)
{
    open({"#define EVENTLOG loghost", "#define SYSLOG", "#define SYSLOGFACILITY 3"});
    click("def_flag_EVENTLOG");
    click("def_flag_SYSLOG");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), QStringList{"#define SYSLOGFACILITY 3"});
    // The server is still at hand when the user thinks again.
    click("def_flag_EVENTLOG");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), (QStringList{"#define SYSLOGFACILITY 3", "#define EVENTLOG loghost"}));
}

TEST_F(ConfigWizard, ACheckedBoxWithoutServerKeepsALineWithoutValue)
{
    open({"#define SYSLOG host"});
    click("def_flag_EVENTLOG");
    type("def_SYSLOG", "");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), (QStringList{"#define SYSLOG", "#define EVENTLOG"}));
    EXPECT_TRUE(isChecked("def_flag_SYSLOG"));
}

TEST_F(ConfigWizard, TheLastOfSeveralLinesIsWritten)
{
    open({"#define MAILTO first", "#define MAILTO second"});
    EXPECT_EQ(textOf("def_MAILTO"), "second");
    type("def_MAILTO", "third");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), (QStringList{"#define MAILTO first", "#define MAILTO third"}));
    // Without its line, the one before it counts again, and the form says so.
    type("def_MAILTO", "");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), QStringList{"#define MAILTO first"});
    EXPECT_EQ(textOf("def_MAILTO"), "first");
}

TEST_F(ConfigWizard, RowsThatMovedAreFoundAgain)
{
    open({"#define MAILTO a", "; b"});
    document.rows.insert(0, {"; new"});
    type("def_MAILTO", "c");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), (QStringList{"; new", "#define MAILTO c", "; b"}));
}

TEST_F(ConfigWizard, ARowThatVanishedIsNotMistakenForAnother)
{
    open({"#define MAILTO a", "c:\\windows t"});
    document.rows.remove(0);
    type("def_MAILTO", "b");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), (QStringList{"c:\\windows t", "#define MAILTO b"}));
}

TEST_F(ConfigWizard, WhatTheUserHasNotTouchedFollowsTheRows)
{
    open({"#define MAILTO a", "#define MAILFROM b", "#define EVENTLOG c"});
    document.rows.replace(0, "#define MAILTO changed");
    document.rows.remove(2);
    type("def_MAILFROM", "mine");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(), (QStringList{"#define MAILTO changed", "#define MAILFROM mine"}));
    EXPECT_EQ(textOf("def_MAILTO"), "changed");
    EXPECT_FALSE(isChecked("def_flag_EVENTLOG"));
}

TEST_F(ConfigWizard, OKWritesAndClosesCancelDoesNot)
{
    open({});
    type("def_MAILTO", "a");
    press(*form, "cmdCancel");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form; }));
    EXPECT_EQ(rows(), QStringList());
    open({});
    type("def_MAILTO", "a");
    key(*form, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form; }));
    EXPECT_EQ(rows(), QStringList{"#define MAILTO a"});
}

TEST_F(ConfigWizard, AFullDocumentIsReportedAndTheFormStaysOpen)
{
    const QStringList full(RowList::maximumRows, "; row");
    open(full);
    type("def_MAILTO", "a");
    messages.expectShow("Run-time error '6':\n\nOverflow\n\n"
                        "A document holds at most 32767 lines. This one would have 32768.",
                        Messages::Icon::Critical);
    press(*form, "cmdOK");
    EXPECT_EQ(rows(), full);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(textOf("def_MAILTO"), "a");
}

TEST_F(ConfigWizard, MovesToTheFieldOfALine)
{
    open({});
    const QList<std::tuple<QString, QString, const char *>> moves{
        {"#define PRIORITY high", "Execution", "def_PRIORITY"},
        {"#DEFINE eventlog", "Events", "def_EVENTLOG"},
        {"#define MAILSUBJECT a b c", "Notification", "def_MAILSUBJECT"},
        {"#define OUTPUTFILE x", "Files", "def_OUTPUTFILE"},
        {"#define BEHDBTYPE Disk", "Self-ident", "def_BEHDBTYPE"}};
    for (const auto &[line, tab, name] : moves) {
        form->MoveCursor(line);
        EXPECT_EQ(page(), tab);
        EXPECT_TRUE(field(name).hasFocus()) << name;
    }
    // The old priority has no field, and other lines are no settings.
    for (const QString &line : QStringList{"#define ZENTILPRIORITY low", "c:\\ t", "#define NOTHING x", ""}) {
        form->MoveCursor(line);
        EXPECT_EQ(page(), "Self-ident") << line.toStdString();
    }
}

TEST_F(ConfigWizard, BrowsingFillsTheField)
{
    open({});
    const QList<std::tuple<const char *, const char *, QString>> dialogs{
        {"BrowseDB", "def_DETECTIONDB", "Zentil DB (*.zdb)"},
        {"BrowseB", "def_BEHAVIORDB", "Zentil Behavior (*.bhv)"},
        {"BrowseOut", "def_OUTPUTFILE", "Zentil Output (*.zof)"}};
    const QString path = QDir::temp().filePath("a file that is not there");
    for (const auto &[button, name, filter] : dialogs) {
        QStringList filters;
        const auto proof = onNextDialog([&](QWidget &dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Open");
            const auto *types = control<QComboBox>(dialog, "fileTypeCombo");
            for (int i = 0; i < types->count(); ++i)
                filters << types->itemText(i);
            chooseInFileDialog(dialog, path);
        });
        press(*form, button);
        EXPECT_TRUE(proof->handled);
        EXPECT_EQ(filters, (QStringList{filter, "All Files (*.*)"}));
        EXPECT_EQ(textOf(name), QDir::toNativeSeparators(path));
    }
    press(*form, "cmdApply");
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(ConfigWizard, MayEndWhileItsFileDialogIsOpen)
{
    open({});
    const auto proof = onNextDialog([this](QWidget &) {
        form->close();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !form; }));
    });
    press(*form, "BrowseDB");
    EXPECT_TRUE(proof->handled);
    EXPECT_FALSE(form);
}

TEST_F(ConfigWizard, IsUsableByKeyboardAndReadAloud)
{
    open(allKeys);
    auto *tabs = control<QTabWidget>(*form, "tbsOptions");
    EXPECT_TRUE(field("def_DETECTIONDB").hasFocus());
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        expectNamedAndLabelled(*form);
        EXPECT_EQ(sharedMnemonics(mnemonicTexts(*form)), QStringList());
        QStringList round = tabRound(*form);
        expectReachableByTab(*form, round);
        round.removeAll("qt_tabwidget_tabbar");
        EXPECT_EQ(round.mid(round.size() - 3), (QStringList{"cmdOK", "cmdCancel", "cmdApply"})) << i;
    }
    EXPECT_LE(form->minimumSizeHint().height(), 700);
    key(*form, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form; }));
}

TEST_F(ConfigWizard, LongValuesAreNotCutOff)
{
    const QString longValue(40'000, 'x');
    open({"#define MAILSUBJECT " + longValue, "#define PRIORITY " + longValue});
    type("def_MAILTO", "a");
    press(*form, "cmdApply");
    EXPECT_EQ(rows(),
              (QStringList{"#define MAILSUBJECT " + longValue, "#define PRIORITY " + longValue, "#define MAILTO a"}));
}

} // namespace
