#include "editors/FlagEditorForm.h"

#include "config/ConfigLine.h"
#include "editors/FlagAlphabets.h"
#include "editors/FlagPanel.h"
#include "editors/FlagText.h"
#include "editors/LineEdit.h"
#include "tests/editors/EditorFixture.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>

namespace {

const QString flagMessage = "You must select at least one flag.";

/// A kind with everything that most kinds have: any object, a prefix, an alphabet.
class PlainEditor final : public FlagEditorForm
{
public:
    PlainEditor(const FlagAlphabet &alphabet, Messages &messages, QWidget *parent)
        : FlagEditorForm(QLatin1String("PlainEditor"), QStringLiteral("Plain"), messages, parent)
    {
        addObjectField(QStringLiteral("Object to monitor"), QStringLiteral("Full path of object to check"));
        addPrefix();
        addFlags(alphabet);
        addButtons(QStringLiteral("&Apply"), QStringLiteral("&Close"));
    }
};

/// A kind whose object has a tag in the line and none in the field.
class TaggedEditor final : public FlagEditorForm
{
public:
    TaggedEditor(Messages &messages, QWidget *parent)
        : FlagEditorForm(QLatin1String("TaggedEditor"), QStringLiteral("Tagged"), messages, parent)
        , m_objectName(addObjectField(QStringLiteral("Name")))
    {
        addPrefix();
        addFlags(userFlags);
        addButtons(QStringLiteral("&OK"), QStringLiteral("&Close"));
    }

protected:
    void showObject(const QString &object) override { m_objectName->setText(object.mid(7)); }
    [[nodiscard]] QString object() const override { return "NTUSER:" + m_objectName->line(); }

private:
    LineEdit *m_objectName;
};

/// A kind without object, prefix and required flags, which closes with a new item too.
class PolicyEditor final : public FlagEditorForm
{
public:
    PolicyEditor(Messages &messages, QWidget *parent)
        : FlagEditorForm(QLatin1String("PolicyEditor"), QStringLiteral("Policy"), messages, parent)
    {
        addFlags(auditPolicyFlags);
        addButtons(QStringLiteral("OK"), QStringLiteral("Cancel"));
        setAfterAdding(AfterAdding::Closes);
    }

protected:
    [[nodiscard]] QString object() const override { return "AUDITPOLICY"; }
    [[nodiscard]] bool acceptsFlags(const QString &) override { return true; }
};

/// A kind with a rule of its own about flags: other flags alone are none, and one letter is never given.
class StrictEditor final : public FlagEditorForm
{
public:
    StrictEditor(Messages &messages, QWidget *parent)
        : FlagEditorForm(QLatin1String("StrictEditor"), QStringLiteral("Strict"), messages, parent)
    {
        addObjectField(QStringLiteral("Object"));
        m_panel = addFlags(directoryServiceFlags);
        connect(&m_panel->box('1'), &QCheckBox::clicked, this, [this] { m_panel->box('1').setChecked(false); });
        addButtons(QStringLiteral("OK"), QStringLiteral("Cancel"));
    }

protected:
    [[nodiscard]] bool acceptsFlags(const QString &) override
    {
        const FlagText parts = m_panel->parts();
        return parts.options[0].isChecked || !parts.letters.isEmpty();
    }

private:
    FlagPanel *m_panel;
};

class FlagEditorFormTest : public Editors
{
protected:
    PlainEditor &plainEditor(const FlagAlphabet &alphabet) { return *new PlainEditor(alphabet, messages, &window); }

    /// What the flags of a line become when it is edited without a change.
    QString rewritten(const FlagAlphabet &alphabet, const QString &line)
    {
        document.rows = QStringList{line};
        press(openForRow(plainEditor(alphabet), 0), "OKButton");
        return document.rows[0];
    }
};

struct ShownAlphabet
{
    const char *name;
    const FlagAlphabet &alphabet;
};

void PrintTo(const ShownAlphabet &shown, std::ostream *stream)
{
    *stream << shown.name;
}

class FlagControls : public FlagEditorFormTest, public testing::WithParamInterface<ShownAlphabet>
{
};

TEST_P(FlagControls, AreThoseOfTheAlphabet)
{
    const FlagAlphabet &alphabet = GetParam().alphabet;
    const ItemEditorForm &form = openForNew(plainEditor(alphabet));
    for (const FlagLetter &letter : alphabet.letters) {
        const auto *box = control<QCheckBox>(form, letter.control.data());
        EXPECT_EQ(box->text(), letter.caption);
        EXPECT_EQ(box->toolTip(), letter.toolTip);
        EXPECT_FALSE(box->isChecked());
    }
    for (const FlagOption &option : alphabet.options) {
        EXPECT_EQ(control<QCheckBox>(form, option.control.data())->text(), option.caption);
        EXPECT_EQ(control<QLineEdit>(form, option.field.data())->toolTip(), option.fieldToolTip);
    }
    EXPECT_EQ(form.findChildren<QCheckBox *>().size(), qsizetype(alphabet.letters.size() + alphabet.options.size()));
    for (const FlagFrame &frame : alphabet.frames)
        EXPECT_EQ(control<QGroupBox>(form, frame.control.data())->title(), frame.caption);
    for (const FlagQuickSet &set : alphabet.quickSets) {
        EXPECT_EQ(control<QAbstractButton>(form, set.control.data())->text(), set.caption);
        EXPECT_EQ(control<QAbstractButton>(form, set.control.data())->toolTip(), set.toolTip);
    }
    EXPECT_EQ(form.findChild<QAbstractButton *>("ClearButton") != nullptr, !alphabet.quickSets.empty());
    EXPECT_EQ(control<QLabel>(form, "Label3")->text(), "Other flags");
    EXPECT_EQ(textOf(form, "OtherFlags"), "");
}

TEST_P(FlagControls, EachLettersBoxWritesItsLetter)
{
    const FlagAlphabet &alphabet = GetParam().alphabet;
    FlagEditorForm &editor = plainEditor(alphabet);
    const ItemEditorForm &form = openForNew(editor);
    for (const FlagLetter &letter : alphabet.letters) {
        press(form, letter.control.data());
        EXPECT_EQ(editor.BuildFlags(), QString(QLatin1Char(letter.letter)));
        press(form, letter.control.data());
    }
    EXPECT_EQ(editor.BuildFlags(), "");
}

TEST_P(FlagControls, AnOptionsFieldIsEnabledExactlyWhileItsBoxIsChecked)
{
    FlagEditorForm &editor = plainEditor(GetParam().alphabet);
    const ItemEditorForm &form = openForNew(editor);
    for (const FlagOption &option : GetParam().alphabet.options) {
        const auto *field = control<QLineEdit>(form, option.field.data());
        EXPECT_FALSE(field->isEnabled());
        press(form, option.control.data());
        EXPECT_TRUE(field->isEnabled());
        enter(form, option.field.data(), " 7 ");
        EXPECT_EQ(editor.BuildFlags(), option.name + QString("7"));
        press(form, option.control.data());
        EXPECT_FALSE(field->isEnabled());
        EXPECT_EQ(editor.BuildFlags(), "");
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Alphabets, FlagControls, testing::Values(
    ShownAlphabet{"File",             fileFlags},
    ShownAlphabet{"Registry",         registryFlags},
    ShownAlphabet{"User",             userFlags},
    ShownAlphabet{"Group",            groupFlags},
    ShownAlphabet{"UserRight",        userRightFlags},
    ShownAlphabet{"AccountPolicy",    accountPolicyFlags},
    ShownAlphabet{"AuditPolicy",      auditPolicyFlags},
    ShownAlphabet{"DirectoryService", directoryServiceFlags}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

TEST_F(FlagEditorFormTest, ShowsALineInItsControls)
{
    document.rows = QStringList{"==C:\\x $(LOG),EVT5,xy"};
    const ItemEditorForm &form = openForRow(plainEditor(fileFlags), 0);
    EXPECT_EQ(textOf(form, "Prefix"), "==");
    EXPECT_EQ(textOf(form, "ObjectName"), "C:\\x");
    EXPECT_EQ(checkedBoxes(form), (QStringList{"t", "c", "n", "o", "g", "p", "z", "EVT"}));
    EXPECT_EQ(textOf(form, "val_EVT"), "5");
    EXPECT_TRUE(control<QWidget>(form, "val_EVT")->isEnabled());
    EXPECT_EQ(textOf(form, "OtherFlags"), "xy");
    press(form, "OKButton");
    EXPECT_EQ(document.rows[0], "==C:\\x $(LOG),EVT5,xy");
}

TEST_F(FlagEditorFormTest, ShowsTheAllMacroAsBoxes)
{
    document.rows = QStringList{"C:\\x $(A)"};
    const ItemEditorForm &form = openForRow(plainEditor(fileFlags), 0);
    for (const FlagLetter &letter : fileFlags.letters) {
        EXPECT_EQ(isChecked(form, letter.control.data()), letter.letter != 'a' && letter.letter != '1')
            << letter.letter;
    }
    press(form, "OKButton");
    EXPECT_EQ(document.rows[0], "C:\\x $(A)");
}

TEST_F(FlagEditorFormTest, RewritesFlagsInTheirOrder)
{
    EXPECT_EQ(rewritten(fileFlags, "C:\\x tcmvsniogpz2,EVT5"), "C:\\x $(A),EVT5");
    EXPECT_EQ(rewritten(fileFlags, "C:\\x ct"), "C:\\x tc");
    EXPECT_EQ(rewritten(fileFlags, "C:\\x xyz"), "C:\\x z,xy");
    EXPECT_EQ(rewritten(registryFlags, "HKLM\\x $(RA),G2,EVT9"), "HKLM\\x $(RA),EVT9,G2");
    EXPECT_EQ(rewritten(userFlags, "NTUSER:x $(UA),EVT7"), "NTUSER:x EVT7,$(UA)");
    EXPECT_EQ(rewritten(groupFlags, "NTGROUP:x $(GA),EVT5"), "NTGROUP:x $(GA),EVT5");
}

TEST_F(FlagEditorFormTest, WritesTheLogSetOnlyWhenItIsExact)
{
    const ItemEditorForm &form = openForNew(plainEditor(fileFlags));
    enter(form, "ObjectName", "C:\\x");
    pressAll(form, {"flag_t", "flag_c", "flag_n", "flag_o", "flag_g", "flag_p", "flag_z"});
    press(form, "OKButton");
    press(form, "flag_m");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, (QStringList{"C:\\x $(LOG)", "C:\\x tcmnogpz"}));
}

TEST_F(FlagEditorFormTest, RequiresAFlagUnlessTheItemIsExcluded)
{
    const ItemEditorForm &form = openForNew(plainEditor(fileFlags));
    enter(form, "ObjectName", "C:\\x");
    for (const char *prefix : {"", "=", "=="}) {
        enter(form, "Prefix", prefix);
        messages.expectShow(flagMessage, Messages::Icon::Exclamation);
        press(form, "OKButton");
        messages.verify();
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(document.rows, QStringList());
    }
    for (const char *prefix : {"!!", "!"}) {
        enter(form, "Prefix", prefix);
        press(form, "OKButton");
    }
    EXPECT_EQ(document.rows, (QStringList{"!!C:\\x", "!C:\\x"}));
}

TEST_F(FlagEditorFormTest, TakesAnOptionOrOtherFlagsForAFlag)
{
    const ItemEditorForm &form = openForNew(plainEditor(fileFlags));
    enter(form, "ObjectName", "C:\\x");
    enter(form, "OtherFlags", "x");
    press(form, "OKButton");
    enter(form, "OtherFlags", "");
    press(form, "flag_EVT");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, (QStringList{"C:\\x x", "C:\\x EVT"}));
}

TEST_F(FlagEditorFormTest, QuickSetsEmptyOtherFlagsAndLeaveOptionBoxes)
{
    document.rows = QStringList{"C:\\x a1,EVT5,xy"};
    FlagEditorForm &editor = plainEditor(fileFlags);
    const ItemEditorForm &form = openForRow(editor, 0);
    press(form, "Button_Flag_All");
    EXPECT_TRUE(isChecked(form, "flag_EVT"));
    EXPECT_EQ(textOf(form, "val_EVT"), "");
    EXPECT_EQ(textOf(form, "OtherFlags"), "");
    EXPECT_EQ(editor.BuildFlags(), "$(A),EVT");
    press(form, "Button_Flag_Log");
    EXPECT_EQ(editor.BuildFlags(), "$(LOG),EVT");
}

TEST_F(FlagEditorFormTest, TheRegistrysLogSetIsWrittenAsLetters)
{
    FlagEditorForm &editor = plainEditor(registryFlags);
    const ItemEditorForm &form = openForNew(editor);
    press(form, "Button_Flag_Log");
    EXPECT_EQ(editor.BuildFlags(), "ckogpz");
    press(form, "Button_Flag_All");
    EXPECT_EQ(editor.BuildFlags(), "$(RA)");
}

TEST_F(FlagEditorFormTest, TheUsersButtonChecksWhatItsMacroStandsFor)
{
    FlagEditorForm &editor = plainEditor(userFlags);
    const ItemEditorForm &form = openForNew(editor);
    pressAll(form, {"flag_a", "flag_EVT"});
    enter(form, "val_EVT", "5");
    enter(form, "OtherFlags", "?");
    press(form, "ButtonUA");
    EXPECT_FALSE(isChecked(form, "flag_a"));
    EXPECT_TRUE(isChecked(form, "flag_EVT"));
    EXPECT_EQ(editor.BuildFlags(), "$(UA),EVT");
    press(form, "flag_a");
    press(form, "flag_EVT");
    EXPECT_EQ(editor.BuildFlags(), "ncCdjhspwlSoaebxmugMrRfLO");
}

TEST_F(FlagEditorFormTest, TheGroupsButtonChecksAll)
{
    FlagEditorForm &editor = plainEditor(groupFlags);
    press(openForNew(editor), "ButtonGA");
    EXPECT_EQ(editor.BuildFlags(), "$(GA)");
}

TEST_F(FlagEditorFormTest, ClearLeavesOptionsAndOtherFlags)
{
    document.rows = QStringList{"C:\\x $(A),EVT5,xy"};
    FlagEditorForm &editor = plainEditor(fileFlags);
    const ItemEditorForm &form = openForRow(editor, 0);
    press(form, "ClearButton");
    EXPECT_EQ(checkedBoxes(form), QStringList{"EVT"});
    EXPECT_EQ(editor.BuildFlags(), "EVT5,xy");
}

TEST_F(FlagEditorFormTest, AnotherLineDoesNotClearAnOptionsBox)
{
    document.rows = QStringList{"C:\\x t,EVT5", "C:\\y c"};
    FlagEditorForm &editor = plainEditor(fileFlags);
    (void)openForRow(editor, 0);
    const ItemEditorForm &form = openForRow(editor, 1);
    EXPECT_EQ(checkedBoxes(form), (QStringList{"c", "EVT"}));
    EXPECT_EQ(textOf(form, "val_EVT"), "");
    EXPECT_TRUE(control<QWidget>(form, "val_EVT")->isEnabled());
    press(form, "OKButton");
    EXPECT_EQ(document.rows[1], "C:\\y c,EVT");
}

TEST_F(FlagEditorFormTest, AFormOfAnotherKindOfObjectDiffersInThatOnly)
{
    document.rows = QStringList{"!NTUSER:admin nc"};
    const ItemEditorForm &form = openForRow(*new TaggedEditor(messages, &window), 0);
    EXPECT_EQ(textOf(form, "ObjectName"), "admin");
    enter(form, "ObjectName", "guest");
    press(form, "OKButton");
    EXPECT_EQ(document.rows[0], "!NTUSER:guest nc");
}

TEST_F(FlagEditorFormTest, AFormWithoutPrefixAndObjectWritesNoPrefix)
{
    document.rows = QStringList{"==AUDITPOLICY EVT5"};
    const ItemEditorForm &form = openForRow(*new PolicyEditor(messages, &window), 0);
    EXPECT_EQ(form.focusWidget()->objectName(), "flag_EVT");
    press(form, "flag_EVT");
    press(form, "OKButton");
    EXPECT_EQ(document.rows[0], "AUDITPOLICY");
}

TEST_F(FlagEditorFormTest, AFormMayCloseWithANewItemToo)
{
    const QPointer<ItemEditorForm> form = &openForNew(*new PolicyEditor(messages, &window));
    press(*form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"AUDITPOLICY"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form; }));
}

TEST_F(FlagEditorFormTest, AFormMayHaveARuleOfItsOwn)
{
    const ItemEditorForm &form = openForNew(*new StrictEditor(messages, &window));
    enter(form, "ObjectName", "LDAP:cn=x");
    enter(form, "OtherFlags", "x");
    press(form, "OKButton");
    press(form, "flag_1");
    EXPECT_FALSE(isChecked(form, "flag_1"));
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList());
    press(form, "flag_2");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"LDAP:cn=x 2,x"});
}

TEST_F(FlagEditorFormTest, SettingAllFlagsMaySetAnOptionToo)
{
    // The data size goes with the letters of its kind; an event does not.
    auto *panel = plainEditor(directoryServiceFlags).findChild<FlagPanel *>();
    panel->SetAllFlags(1);
    EXPECT_EQ(panel->BuildFlags(), "12,D");
    panel->SetAllFlags(0);
    EXPECT_EQ(panel->BuildFlags(), "");
    auto *ofFile = plainEditor(fileFlags).findChild<FlagPanel *>();
    ofFile->SetAllFlags(1);
    EXPECT_EQ(ofFile->BuildFlags(), "tcamvsniogpz12");
}

TEST_F(FlagEditorFormTest, PastedLineBreaksBecomeBlanks)
{
    const ItemEditorForm &form = openForNew(plainEditor(fileFlags));
    enter(form, "ObjectName", "C:\\a\nb");
    enter(form, "OtherFlags", "x\ny");
    press(form, "flag_EVT");
    enter(form, "val_EVT", "\n5\r\n");
    press(form, "OKButton");
    EXPECT_EQ(document.rows, QStringList{"\"C:\\a b\" EVT5,x y"});
}

} // namespace
