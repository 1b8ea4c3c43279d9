#include "editors/ConfigDialogLDAP.h"

#include "tests/config/PlainGrammar.h"
#include "tests/editors/EditorFixture.h"
#include "tests/editors/PlainFlags.h"
#include "tests/support/Random.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr auto kind = ItemKind::DirectoryService;
const QString noFlag = "You must specify at least one flag.";
const QString noHash = "You chose to store data with a threshold greater than 0, but did not specify a hash of MD5 or "
                       "SHA so no hashes will "
                       "be stored. It is recommended that you specify a hash. Would you like to add the hash now?";

class ConfigDialogLDAPTest : public Editors
{
protected:
    [[nodiscard]] static QComboBox &preBox(const QWidget &form) { return *control<QComboBox>(form, "PreBox"); }
    [[nodiscard]] static bool isChecked(const QWidget &form, const char *box)
    {
        return control<QCheckBox>(form, box)->isChecked();
    }

    /// Checks flag_XD and gives it a number.
    static void storeData(const QWidget &form, const QString &number)
    {
        control<QCheckBox>(form, "flag_XD")->setChecked(true);
        enter(form, "val_XD", number);
    }
};

TEST_F(ConfigDialogLDAPTest, HasItsTexts)
{
    const ItemEditorForm &form = add(kind);
    EXPECT_EQ(form.windowTitle(), "Directory Service (LDAP)");
    EXPECT_EQ(control<QLabel>(form, "Label1")->text(), "LDAP query (RFC 2254 format)");
    EXPECT_EQ(control<QLabel>(form, "Label2")->text(), "Container");
    EXPECT_EQ(control<QLabel>(form, "Label3")->text(), "Other flags");
    EXPECT_EQ(control<QPushButton>(form, "ObjBrowse")->text(), "Browse...");
    EXPECT_EQ(control<QPushButton>(form, "CancelButton")->text(), "Cancel");
    EXPECT_EQ(control<QGroupBox>(form, "Frame1")->title(), "Properties to monitor");
    EXPECT_EQ(control<QCheckBox>(form, "flag_1")->text(), "Store MD5 signature of value(s)");
    EXPECT_EQ(control<QCheckBox>(form, "flag_2")->text(), "Store SHA signature of value(s)");
    EXPECT_EQ(control<QCheckBox>(form, "flag_XD")->text(),
              "Store data rather than hash for items of size less than this many bytes");
    EXPECT_EQ(control<QLineEdit>(form, "val_XD")->toolTip(),
              "If this value is 0, hash is always stored; if value is -1, data is always stored");
    QStringList offered;
    for (int i = 0; i < preBox(form).count(); ++i)
        offered << preBox(form).itemText(i);
    EXPECT_EQ(offered, (QStringList{"", "! - exclude attributes", "!! - exclude sub-branches & attributes",
                                    "= - affect one level"}));
    EXPECT_FALSE(preBox(form).isEditable());
}

TEST_F(ConfigDialogLDAPTest, ANewItemIsEmpty)
{
    const ItemEditorForm &form = add(kind);
    EXPECT_EQ(textOf(form, "ObjectName"), "");
    for (const char *box : {"flag_1", "flag_2", "flag_XD"})
        EXPECT_FALSE(isChecked(form, box)) << box;
    EXPECT_EQ(preBox(form).currentIndex(), 0);
}

TEST_F(ConfigDialogLDAPTest, SetAllFlagsSetsTheThreeBoxes)
{
    auto &form = dynamic_cast<ConfigDialogLDAP &>(add(kind));
    for (const int value : {1, 0}) {
        form.SetAllFlags(value);
        for (const char *box : {"flag_1", "flag_2", "flag_XD"})
            EXPECT_EQ(isChecked(form, box), value != 0) << box;
    }
}

// Flags

TEST_F(ConfigDialogLDAPTest, OnlyDWithZeroIsSavedWithoutAQuestion)
{
    const ItemEditorForm &form = add(kind);
    enter(form, "ObjectName", "LDAP:cn=x");
    storeData(form, "0");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"LDAP:cn=x D0"});
    EXPECT_TRUE(form.isVisible());
}

TEST_F(ConfigDialogLDAPTest, OnlyDWithAHundredAsksAndNoGoesOn)
{
    const ItemEditorForm &form = add(kind);
    enter(form, "ObjectName", "LDAP:cn=x");
    storeData(form, "100");
    messages.expectAsk(noHash, Messages::Buttons::YesNo, Messages::Answer::Yes);
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList());
    EXPECT_TRUE(form.isVisible());

    messages.expectAsk(noHash, Messages::Buttons::YesNo, Messages::Answer::No);
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"LDAP:cn=x D100"});
}

TEST_F(ConfigDialogLDAPTest, TheNumberOfDIsWhatItsTextBeginsWith)
{
    const ItemEditorForm &form = add(kind);
    enter(form, "ObjectName", "LDAP:cn=x");
    for (const char *number : {"", "-1", "abc", "0.0", "x5", "-", ".", "-.5", "0x10"}) {
        SCOPED_TRACE(number);
        storeData(form, number);
        const qsizetype before = document.rows.size();
        press(form, "OKButton");
        EXPECT_EQ(document.rows.size(), before + 1);
    }
    for (const char *number : {"0.5", " 7", "1abc", "+3", ".1", "5e2", "9999999999999999999999"}) {
        SCOPED_TRACE(number);
        storeData(form, number);
        messages.expectAsk(noHash, Messages::Buttons::YesNo, Messages::Answer::Yes);
        press(form, "OKButton");
        messages.verify();
    }
}

TEST_F(ConfigDialogLDAPTest, AHashAsksNothing)
{
    const ItemEditorForm &form = add(kind);
    enter(form, "ObjectName", "LDAP:cn=x");
    storeData(form, "64");
    press(form, "flag_2");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"LDAP:cn=x 2,D64"});
}

TEST_F(ConfigDialogLDAPTest, Md5AndShaWithD64GiveTheFlags12D64)
{
    const ItemEditorForm &form = add(kind);
    enter(form, "ObjectName", "LDAP:cn=x");
    press(form, "flag_1");
    press(form, "flag_2");
    storeData(form, " 64 ");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"LDAP:cn=x 12,D64"});
}

TEST_F(ConfigDialogLDAPTest, OtherFlagsAloneAreNotEnough)
{
    const ItemEditorForm &form = add(kind);
    enter(form, "ObjectName", "LDAP:cn=x");
    enter(form, "OtherFlags", "Z");
    messages.expectShow(noFlag, Messages::Icon::Exclamation);
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList());
    EXPECT_TRUE(form.isVisible());
    // Nor is a prefix that excludes something.
    preBox(form).setCurrentIndex(1);
    messages.expectShow(noFlag, Messages::Icon::Exclamation);
    press(form, "OKButton");
    press(form, "flag_1");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"!LDAP:cn=x 1,Z"});
}

// The object

TEST_F(ConfigDialogLDAPTest, AnObjectWithoutTheTagGetsIt)
{
    const ItemEditorForm &form = add(kind);
    press(form, "flag_1");
    for (const char *object : {"cn=x,dc=example", "  cn=x,dc=example ", "ldap:cn=x", "LDAP:cn=x", "LDA", "", "LDAP"}) {
        enter(form, "ObjectName", object);
        press(form, "OKButton");
    }
    EXPECT_EQ(document.rows, (QStringList{"LDAP:cn=x,dc=example 1", "LDAP:cn=x,dc=example 1", "ldap:cn=x 1",
                                          "LDAP:cn=x 1", "LDAP:LDA 1", "LDAP: 1", "LDAP:LDAP 1"}));
}

TEST_F(ConfigDialogLDAPTest, ALineIsShownWithItsTag)
{
    document.rows = QStringList{"!\"LDAP://h/cn=a b??sub\" 1,D-1,Z"};
    const ItemEditorForm &form = edit(kind, 0);
    EXPECT_EQ(textOf(form, "ObjectName"), "LDAP://h/cn=a b??sub");
    EXPECT_EQ(preBox(form).currentIndex(), 1);
    EXPECT_TRUE(isChecked(form, "flag_1"));
    EXPECT_FALSE(isChecked(form, "flag_2"));
    EXPECT_TRUE(isChecked(form, "flag_XD"));
    EXPECT_EQ(textOf(form, "val_XD"), "-1");
    EXPECT_EQ(textOf(form, "OtherFlags"), "Z");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"!\"LDAP://h/cn=a b??sub\" 1,D-1,Z"});
    EXPECT_FALSE(form.isVisible());
}

// The prefix

TEST_F(ConfigDialogLDAPTest, EachOfferedPrefixIsShownAndWritten)
{
    document.rows = QStringList{"LDAP:a 1", "!LDAP:b 1", "!!LDAP:c 1", "=LDAP:d 1"};
    for (const int row : {0, 1, 2, 3}) {
        const ItemEditorForm &form = edit(kind, qint16(row));
        EXPECT_EQ(preBox(form).currentIndex(), row);
        press(form, "OKButton");
    }
    EXPECT_EQ(document.rows, (QStringList{"LDAP:a 1", "!LDAP:b 1", "!!LDAP:c 1", "=LDAP:d 1"}));
}

TEST_F(ConfigDialogLDAPTest, AnUnknownPrefixLeavesPreBoxAndIsWrittenEmpty)
{
    document.rows = QStringList{"==LDAP:a 1", "==LDAP:b 1"};
    press(edit(kind, 0), "OKButton");
    EXPECT_EQ(document.rows[0], "LDAP:a 1");
    const ItemEditorForm &form = edit(kind, 1);
    EXPECT_EQ(preBox(form).currentIndex(), 0);
    preBox(form).setCurrentIndex(3);
    press(form, "OKButton");
    EXPECT_EQ(document.rows[1], "=LDAP:b 1");
}

// Also of a line without any: a form that is open keeps what it showed.
TEST_F(ConfigDialogLDAPTest, ALineWithoutAPrefixLeavesPreBoxOfAnOpenForm)
{
    document.rows = QStringList{"!!LDAP:a 1", "LDAP:b 1"};
    const ItemEditorForm &form = edit(kind, 0);
    EXPECT_EQ(&edit(kind, 1), &form);
    EXPECT_EQ(preBox(form).currentIndex(), 2);
}

// The browser

TEST_F(ConfigDialogLDAPTest, TheBrowserStartsWithTheObjectAndItsResultReplacesIt)
{
    directory.add("o=Second");
    const ItemEditorForm &form = add(kind);
    enter(form, "ObjectName", "LDAP://localhost/o=Second??base?(a=b)");
    const auto browsed = onNextDialog([&](QWidget &dialog) {
        EXPECT_EQ(dialog.objectName(), "BrowseLDAP");
        EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
        EXPECT_EQ(textOf(dialog, "Object"), "LDAP://localhost/o=Second");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !directory.calls.isEmpty(); }));
        control<QComboBox>(dialog, "Scope")->setCurrentIndex(2);
        press(dialog, "OKButton");
    });
    press(form, "ObjBrowse");
    EXPECT_TRUE(browsed->handled);
    EXPECT_EQ(textOf(form, "ObjectName"), "LDAP://localhost/o=Second??one?(a=b)");
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ConfigDialogLDAPTest, ACancelledBrowserLeavesTheObject)
{
    const ItemEditorForm &form = add(kind);
    enter(form, "ObjectName", "LDAP:cn=x");
    const auto browsed = onNextDialog([](QWidget &dialog) { press(dialog, "CancelButton"); });
    press(form, "ObjBrowse");
    EXPECT_TRUE(browsed->handled);
    EXPECT_EQ(textOf(form, "ObjectName"), "LDAP:cn=x");
}

// Editing without a change, compared with the rules told once more

class PlainDirectoryEditor
{
public:
    /// @throws plain::NegativeLength
    void show(const QString &line)
    {
        const plain::Parts parts = plain::parseAsDocument(line);
        plain::parse(plain::directoryService, parts.flags, m_controls);
        if (parts.prefix == "!" || parts.prefix == "!!" || parts.prefix == "=")
            m_prefix = parts.prefix;
        m_object = parts.object;
    }

    [[nodiscard]] bool hasHash() const { return m_controls.checked != ""; }
    [[nodiscard]] bool hasFlag() const { return hasHash() || m_controls.optionBoxes[0]; }
    /// The numbers of the test's lines have only digits and minus signs.
    [[nodiscard]] bool isAsked() const
    {
        const QString &number = m_controls.optionFields[0];
        return m_controls.optionBoxes[0] && !hasHash() && number != "" && number[0] != '-' &&
               number.section('-', 0, 0).toDouble() > 0;
    }

    [[nodiscard]] QString line() const
    {
        QString object = m_object;
        while (object.startsWith(' '))
            object = object.mid(1);
        while (object.endsWith(' '))
            object.chop(1);
        if (object.left(5).toUpper() != "LDAP:")
            object = "LDAP:" + object;
        return plain::assemble(object, m_prefix, plain::build(plain::directoryService, m_controls), true);
    }

private:
    plain::Controls m_controls = plain::blankControls(plain::directoryService);
    QString m_object;
    QString m_prefix;
};

TEST_F(ConfigDialogLDAPTest, EditingWithoutAChangeWritesWhatThePlainModelSays)
{
    Random random(45);
    const QStringList prefixes{"", "", "", "!", "!!", "=", "==", "=!", " ", "\""};
    const QStringList pieces{"//h/", "cn=x", ",dc=y", " ",           " ",        "\"",        "=",    "!",
                             "\\",   ":",    "?",     "??sub?(a=b)", "\xC3\xA9", "\\u0x0009", "LDAP:"};
    const QStringList flags{"1", "2", "D64", "D-1", "D0", "D", "D5-3", ",", ",", "Z", "12", "1D2", "$(A)"};
    document.rows = QStringList{"", ""};
    int accepted = 0;
    int refused = 0;
    int asked = 0;
    for (int round = 0; round < 600; ++round) {
        PlainDirectoryEditor model;
        qint16 row = 0;
        bool isShown = true;
        for (int count = random.number(1, 2); count > 0 && isShown; --count) {
            row = qint16(random.number(0, 1));
            QString line = random.oneOf(prefixes) + (random.chance(85) ? "LDAP:" : "ldap:") + random.text(pieces, 5);
            if (line.contains(' ') && random.chance(80))
                line = "\"" + line + "\"";
            document.rows[row] = random.chance(85) ? line + " " + random.text(flags, 5) : line;
            try {
                model.show(document.rows[row]);
            } catch (const plain::NegativeLength &) {
                isShown = false;
            }
            if (isShown)
                (void)edit(kind, row);
            else
                EXPECT_THROW((void)edit(kind, row), RuntimeError);
        }
        if (!isShown)
            continue;
        const QString before = document.rows[row];
        SCOPED_TRACE(before.toStdString());
        auto &form = dynamic_cast<ItemEditorForm &>(editors.sharedEditor(kind));
        if (model.isAsked())
            messages.expectAsk(noHash, Messages::Buttons::YesNo, Messages::Answer::No);
        else if (!model.hasFlag())
            messages.expectShow(noFlag, Messages::Icon::Exclamation);
        press(form, "OKButton");
        messages.verify();
        ASSERT_EQ(document.rows[row], model.hasFlag() ? model.line() : before);
        asked += int(model.isAsked());
        ++(model.hasFlag() ? accepted : refused);
        form.close();
    }
    // Each happens often enough to mean something.
    EXPECT_GT(accepted, 200);
    EXPECT_GT(refused, 30);
    EXPECT_GT(asked, 20);
}

} // namespace
