#include "editors/ConfigDialogFlags.h"
#include "editors/ConfigDialogPrefix.h"
#include "tests/editors/EditorFixture.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>

namespace {

// The flag chooser

class ConfigDialogFlagsTest : public testing::Test
{
protected:
    void SetUp() override { showActive(dialog); }

    void check(const QStringList &boxes) const
    {
        for (const QString &name : boxes)
            press(dialog, name.toLatin1());
    }

    ConfigDialogFlags dialog{nullptr};
};

TEST_F(ConfigDialogFlagsTest, HasItsTexts)
{
    EXPECT_EQ(dialog.windowTitle(), "File and Registry Flags");
    EXPECT_EQ(control<QLabel>(dialog, "Label1")->text(), "Other flags");
    EXPECT_EQ(control<QAbstractButton>(dialog, "OKButton")->text(), "OK");
    EXPECT_EQ(control<QAbstractButton>(dialog, "CancelButton")->text(), "&Cancel");
}

TEST_F(ConfigDialogFlagsTest, GroupsItsBoxes)
{
    QStringList grouped;
    for (const QGroupBox *frame : dialog.findChildren<QGroupBox *>()) {
        QStringList boxes;
        for (const QCheckBox *box : frame->findChildren<QCheckBox *>())
            boxes << box->objectName().mid(5);
        grouped << frame->title() + ": " + boxes.join(u' ');
    }
    EXPECT_EQ(grouped, (QStringList{"Registry only: k", "File only: t v s n i a", "Common: o g p z 1 2 c m"}));
    EXPECT_EQ(dialog.findChildren<QCheckBox *>().size(), 15);
}

TEST_F(ConfigDialogFlagsTest, WritesItsLettersInTheirOrder)
{
    check({"flag_t", "flag_k"});
    EXPECT_EQ(dialog.BuildFlags(), "kt");
    check({"flag_2", "flag_m", "flag_c", "flag_a", "flag_v", "flag_s", "flag_n", "flag_i", "flag_o", "flag_g", "flag_p",
           "flag_z", "flag_1"});
    EXPECT_EQ(dialog.BuildFlags(), "ktcamvsniogpz12");
}

TEST_F(ConfigDialogFlagsTest, SetsNothingOffFromOtherFlags)
{
    check({"flag_k", "flag_t"});
    control<QLineEdit>(dialog, "OtherFlags")->insert("EVT5");
    EXPECT_EQ(dialog.BuildFlags(), "ktEVT5");
}

TEST_F(ConfigDialogFlagsTest, KnowsNoMacro)
{
    // The set that "$(A)" stands for in the file editor.
    check({"flag_t", "flag_c", "flag_m", "flag_v", "flag_s", "flag_n", "flag_i", "flag_o", "flag_g", "flag_p", "flag_z",
           "flag_2"});
    EXPECT_EQ(dialog.BuildFlags(), "tcmvsniogpz2");
}

TEST_F(ConfigDialogFlagsTest, SaysHowItWasClosed)
{
    check({"flag_t"});
    press(dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), 1);
    EXPECT_EQ(dialog.flags(), "t");
    for (const bool isByKey : {false, true}) {
        showActive(dialog);
        if (isByKey)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            press(dialog, "CancelButton");
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(dialog.result(), 2);
    }
    showActive(dialog);
    dialog.close();
    EXPECT_EQ(dialog.result(), 2);
}

// The prefix chooser

class ConfigDialogPrefixTest : public Editors
{
protected:
    /// Opens the chooser of an editor whose prefix is "old".
    QString prefixAfter(const std::function<void(QWidget &)> &steps)
    {
        const ItemEditorForm &form = add(ItemKind::Other);
        enter(form, "Prefix", "old");
        const auto chosen = onNextDialog(steps);
        press(form, "ButtonPrefixQuery");
        EXPECT_TRUE(chosen->handled);
        return textOf(form, "Prefix");
    }
};

TEST_F(ConfigDialogPrefixTest, ExplainsThePrefixes)
{
    (void)prefixAfter([](QWidget &dialog) {
        EXPECT_EQ(dialog.objectName(), "ConfigDialogPrefix");
        EXPECT_EQ(dialog.windowTitle(), "Prefix Options");
        QStringList captions;
        for (const QRadioButton *option : dialog.findChildren<QRadioButton *>()) {
            captions << option->text();
            EXPECT_FALSE(option->isChecked());
        }
        EXPECT_EQ(captions,
                  (QStringList{"[=] Do not store all files within the given directory but do store directories within "
                               "that directory. File in subdirectories are stored.",
                               "[==] Do not store all files within the given directory nor any files within "
                               "subdirectories at any level below the given directory.",
                               "[!] Do not store item.", "[!!] Do not store item or its children."}));
        EXPECT_EQ(control<QAbstractButton>(dialog, "CancelButton")->text(), "&Cancel");
    });
}

TEST_F(ConfigDialogPrefixTest, WritesTheChosenOne)
{
    const QMap<QByteArray, QString> prefixes{
        {"OptionEq_0", "="}, {"OptionEq_1", "=="}, {"OptionEq_2", "!"}, {"OptionEq_3", "!!"}};
    for (auto option = prefixes.begin(); option != prefixes.end(); ++option) {
        EXPECT_EQ(prefixAfter([&](QWidget &dialog) {
                      press(dialog, option.key());
                      press(dialog, "OKButton");
                      EXPECT_FALSE(dialog.isVisible());
                  }),
                  option.value());
    }
}

TEST_F(ConfigDialogPrefixTest, ClearsThePrefixWhenNothingIsChosen)
{
    EXPECT_EQ(prefixAfter([](QWidget &dialog) { press(dialog, "OKButton"); }), "");
}

TEST_F(ConfigDialogPrefixTest, EnterConfirmsAndKeysChoose)
{
    EXPECT_EQ(prefixAfter([](QWidget &dialog) {
                  showActive(dialog);
                  key(dialog, Qt::Key_Space);
                  key(dialog, Qt::Key_Down);
                  key(dialog, Qt::Key_Return);
                  EXPECT_FALSE(dialog.isVisible());
              }),
              "==");
}

TEST_F(ConfigDialogPrefixTest, AnArrowKeyChoosesWhereItGoesThoughNothingWasChosen)
{
    EXPECT_EQ(prefixAfter([](QWidget &dialog) {
                  showActive(dialog);
                  key(dialog, Qt::Key_Down);
                  key(dialog, Qt::Key_Down);
                  key(dialog, Qt::Key_Return);
              }),
              "!");
    // The Tab key only goes through the dialog.
    EXPECT_EQ(prefixAfter([](QWidget &dialog) {
                  showActive(dialog);
                  key(dialog, Qt::Key_Tab);
                  key(dialog, Qt::Key_Return);
              }),
              "");
}

TEST_F(ConfigDialogPrefixTest, WritesNothingWhenItIsCancelled)
{
    EXPECT_EQ(prefixAfter([](QWidget &dialog) {
                  press(dialog, "OptionEq_1");
                  press(dialog, "CancelButton");
                  EXPECT_FALSE(dialog.isVisible());
              }),
              "old");
    EXPECT_EQ(prefixAfter([](QWidget &dialog) {
                  press(dialog, "OptionEq_1");
                  QTest::keyClick(&dialog, Qt::Key_Escape);
                  EXPECT_FALSE(dialog.isVisible());
              }),
              "old");
}

TEST_F(ConfigDialogPrefixTest, ShowsTheWholeCaptions)
{
    (void)prefixAfter([](QWidget &dialog) {
        for (const QRadioButton *option : dialog.findChildren<QRadioButton *>()) {
            EXPECT_GE(option->height(), option->sizeHint().height());
            EXPECT_GE(option->width(), option->sizeHint().width());
            // Wrapped: on one line the long ones would be wider than a small screen.
            EXPECT_LT(option->sizeHint().width(), 640);
        }
        EXPECT_GT(control<QWidget>(dialog, "OptionEq_0")->height(),
                  control<QWidget>(dialog, "OptionEq_2")->height() + dialog.fontMetrics().height());
    });
}

TEST_F(ConfigDialogPrefixTest, TakesAClickAnywhereOnACaption)
{
    EXPECT_EQ(prefixAfter([](QWidget &dialog) {
                  auto *option = control<QRadioButton>(dialog, "OptionEq_1");
                  QTest::mouseClick(option, Qt::LeftButton, {}, option->rect().bottomRight() - QPoint(2, 2));
                  press(dialog, "OKButton");
              }),
              "==");
}

} // namespace
