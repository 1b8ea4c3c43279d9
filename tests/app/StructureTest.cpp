#include "app/MessageBoxes.h"
#include "platform/ByteText.h"
#include "settings/Icons.h"
#include "tests/app/ProgramFixture.h"
#include "tests/support/FormStructure.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSet>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace {

class Structure : public Program
{
protected:
    void SetUp() override
    {
        fakeFiles.content["/a.zcf"] = "a\r\n";
        fakeFiles.content["/b.zcf"] = "b\r\n";
    }

    /// The menus of the menu bar and those in them.
    [[nodiscard]] QList<QMenu *> menus() const
    {
        QList<QMenu *> result;
        QList<QAction *> actions = window->menuBar()->actions();
        while (!actions.isEmpty()) {
            QMenu *menu = actions.takeFirst()->menu();
            if (!menu)
                continue;
            result << menu;
            actions << menu->actions();
        }
        return result;
    }
};

TEST_F(Structure, EveryControlOfADocumentIsNamedAndLabelled)
{
    start({"/a.zcf"});
    expectNamedAndLabelled(document(0));
}

TEST_F(Structure, EveryControlOfTheMainWindowIsNamed)
{
    start();
    expectNamedAndLabelled(*window);
    for (const QWidget *widget : window->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!widget->objectName().startsWith("qt_")) {
            EXPECT_FALSE(widget->objectName().isEmpty()) << widget->metaObject()->className();
        }
    }
}

TEST_F(Structure, EveryDocumentWindowIsNamed)
{
    start({"/a.zcf", "/b.zcf"});
    for (const ConfigForm *each : window->documents()) {
        EXPECT_EQ(each->objectName(), "ConfigForm");
        EXPECT_FALSE(each->parentWidget()->objectName().isEmpty());
    }
}

TEST_F(Structure, EveryMenuAndEntryIsNamed)
{
    start({"/a.zcf"});
    QSet<QString> names;
    for (const QMenu *menu : menus()) {
        EXPECT_TRUE(menu->objectName().startsWith("mnu")) << menu->title().toStdString();
        for (const QAction *action : menu->actions()) {
            if (action->isSeparator())
                continue;
            EXPECT_TRUE(action->objectName().startsWith("mnu")) << action->text().toStdString();
            EXPECT_FALSE(names.contains(action->objectName())) << action->objectName().toStdString();
            names << action->objectName();
        }
    }
    EXPECT_FALSE(names.isEmpty());
}

TEST_F(Structure, EveryToolBarButtonIsNamedAndSaysWhatItDoes)
{
    start();
    const auto *bar = control<QToolBar>(*window, "tbToolBar");
    for (QAction *action : bar->actions()) {
        if (action->isSeparator())
            continue;
        const QWidget *button = bar->widgetForAction(action);
        EXPECT_EQ(button->objectName(), action->objectName());
        EXPECT_FALSE(action->toolTip().isEmpty()) << action->objectName().toStdString();
        EXPECT_FALSE(action->icon().isNull()) << action->objectName().toStdString();
    }
}

TEST_F(Structure, MnemonicsOfADocumentAndOfTheMenuBarAreUnique)
{
    start({"/a.zcf"});
    QMap<QString, QString> texts = mnemonicTexts(document(0));
    EXPECT_FALSE(texts.isEmpty());
    for (const QAction *menu : window->menuBar()->actions())
        texts[menu->objectName()] = menu->text();
    for (auto text = texts.begin(); text != texts.end(); ++text)
        EXPECT_FALSE(mnemonicOf(text.value()).isNull()) << text.key().toStdString() << " has no mnemonic";
    EXPECT_EQ(sharedMnemonics(texts), QStringList());
}

TEST_F(Structure, MnemonicsOfEachMenuAreUnique)
{
    start({"/a.zcf"});
    QStringList sharing;
    for (const QMenu *menu : menus()) {
        QMap<QString, QString> texts;
        for (const QAction *action : menu->actions())
            texts[action->objectName()] = action->text();
        sharing << sharedMnemonics(texts);
    }
    // These captions are given as they are. The key goes from one to the other; "Orient" is disabled.
    EXPECT_EQ(sharing, (QStringList{"mnuViewToolbar and mnuViewOrient", "mnuItemNewRight and mnuItemNewGroup",
                                    "mnuItemEditRight and mnuItemEditGroup"}));
}

TEST_F(Structure, NoKeyStandsForTwoCommands)
{
    start({"/a.zcf"});
    QMap<QString, QString> taken;
    for (const QAction *action : window->findChildren<QAction *>()) {
        for (const QKeySequence &sequence : action->shortcuts()) {
            const QString text = sequence.toString();
            if (text.isEmpty())
                continue;
            EXPECT_FALSE(taken.contains(text)) << text.toStdString() << ": " << action->objectName().toStdString()
                                               << " and " << taken[text].toStdString();
            taken[text] = action->objectName();
        }
    }
    EXPECT_TRUE(taken.contains("Ctrl+S"));
}

TEST_F(Structure, EveryControlOfADocumentIsReachedByTabInTheOrderOfTheLayout)
{
    start({"/a.zcf"});
    const QStringList round = tabRound(document(0));
    expectReachableByTab(document(0), round);
    EXPECT_EQ(round, (QStringList{"ConfigList", "NewItemList", "EditButton", "RemoveButton", "MoveUpButton",
                                  "MoveDownButton", "ApplyButton", "CloseButton"}));
}

TEST_F(Structure, OnceEnabledEveryControlOfADocumentIsReachedToo)
{
    start({"/a.zcf"});
    for (QWidget *input : inputsOf(document(0)))
        input->setEnabled(true);
    control<QWidget>(document(0), "RemoteConnectFlag")->show();
    const QStringList round = tabRound(document(0));
    expectReachableByTab(document(0), round);
    EXPECT_EQ(round, (QStringList{"ConfigList", "NewItemList", "EditButton", "RemoveButton", "MoveUpButton",
                                  "MoveDownButton", "RemoteConnectFlag", "ApplyButton", "CloseButton"}));
}

TEST_F(Structure, EveryIconExists)
{
    start({"/a.zcf"});
    for (const QAction *action : window->findChildren<QAction *>()) {
        if (!action->icon().isNull()) {
            EXPECT_FALSE(action->icon().pixmap(16).isNull()) << action->objectName().toStdString();
        }
    }
    for (const auto *button : document(0).findChildren<QAbstractButton *>()) {
        if (!button->icon().isNull()) {
            EXPECT_FALSE(button->icon().pixmap(16).isNull()) << button->objectName().toStdString();
        }
    }
    EXPECT_FALSE(window->windowIcon().pixmap(32).isNull());
    EXPECT_FALSE(document(0).parentWidget()->windowIcon().pixmap(16).isNull());
}

TEST_F(Structure, AChangedDocumentHasAnotherIcon)
{
    start({"/a.zcf"});
    const QWidget *frame = document(0).parentWidget();
    const QImage unchanged = frame->windowIcon().pixmap(32).toImage();
    document(0).setChanged(-1);
    EXPECT_NE(frame->windowIcon().pixmap(32).toImage(), unchanged);
    document(0).setChanged(0);
    EXPECT_EQ(frame->windowIcon().pixmap(32).toImage(), unchanged);
}

// Message boxes

TEST(MessageBox, ShowsItsTextAsItIsUnderTheProgramsTitle)
{
    MessageBoxes realBoxes;
    Messages &boxes = realBoxes;
    const auto shown = onNextDialog([](QWidget &dialog) {
        const auto *box = qobject_cast<QMessageBox *>(&dialog);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->objectName(), "MessageBox");
        EXPECT_EQ(box->windowTitle(), "ZentilConf");
        EXPECT_EQ(box->text(), "File <b>x</b> not found");
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        expectNamedAndLabelled(dialog);
        press(dialog, "OKButton");
        EXPECT_FALSE(dialog.isVisible());
    });
    boxes.show("File <b>x</b> not found", Messages::Icon::Exclamation);
    EXPECT_TRUE(shown->handled);
}

TEST(MessageBox, ShowsBytesThatAreNoTextAsTheCharactersThatTheyStandFor)
{
    MessageBoxes realBoxes;
    Messages &boxes = realBoxes;
    const auto shown = onNextDialog(
        [](QWidget &dialog) { EXPECT_EQ(static_cast<QMessageBox &>(dialog).text(), "Cannot find file C:\\\u00FC"); });
    boxes.show("Cannot find file C:\\" + decodeBytes("\xFC"), Messages::Icon::None, {});
    EXPECT_TRUE(shown->handled);
}

TEST(MessageBox, MayHaveATitleOfItsOwn)
{
    MessageBoxes realBoxes;
    Messages &boxes = realBoxes;
    const auto shown = onNextDialog([](QWidget &dialog) { EXPECT_EQ(dialog.windowTitle(), "Print"); });
    boxes.show("text", Messages::Icon::None, "Print");
    EXPECT_TRUE(shown->handled);
}

struct AnswerCase
{
    const char *name;
    Messages::Buttons buttons;
    const char *button;
    Messages::Answer answer;
};

class MessageBoxAnswer : public testing::TestWithParam<AnswerCase>
{
};

TEST_P(MessageBoxAnswer, IsTheButtonsOrCancelsWhenItIsClosed)
{
    MessageBoxes realBoxes;
    Messages &boxes = realBoxes;
    const auto asked = onNextDialog([](QWidget &dialog) {
        expectNamedAndLabelled(dialog);
        EXPECT_EQ(dialog.findChild<QAbstractButton *>("CancelButton") != nullptr,
                  GetParam().buttons == Messages::Buttons::YesNoCancel);
        if (qstrlen(GetParam().button) > 0)
            press(dialog, GetParam().button);
        else
            QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(boxes.ask("Save?", GetParam().buttons), GetParam().answer);
    EXPECT_TRUE(asked->handled);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, MessageBoxAnswer, testing::Values(
    AnswerCase{"Yes",                 Messages::Buttons::YesNoCancel, "YesButton",    Messages::Answer::Yes},
    AnswerCase{"No",                  Messages::Buttons::YesNoCancel, "NoButton",     Messages::Answer::No},
    AnswerCase{"Cancel",              Messages::Buttons::YesNoCancel, "CancelButton", Messages::Answer::Cancel},
    AnswerCase{"Closed",              Messages::Buttons::YesNoCancel, "",             Messages::Answer::Cancel},
    AnswerCase{"YesWithoutCancel",    Messages::Buttons::YesNo,       "YesButton",    Messages::Answer::Yes},
    AnswerCase{"NoWithoutCancel",     Messages::Buttons::YesNo,       "NoButton",     Messages::Answer::No},
    AnswerCase{"ClosedWithoutCancel", Messages::Buttons::YesNo,       "",             Messages::Answer::No},
    AnswerCase{"YesOrElseNo",         Messages::Buttons::YesOrElseNo, "YesButton",    Messages::Answer::Yes},
    AnswerCase{"NoOrElseNo",          Messages::Buttons::YesOrElseNo, "NoButton",     Messages::Answer::No},
    AnswerCase{"ClosedOrElseNo",      Messages::Buttons::YesOrElseNo, "",             Messages::Answer::No}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

// A password goes out unencrypted after such a question: not because somebody has gone on pressing Enter.
TEST(MessageBox, TheEnterKeySaysYesUnlessNoIsTheDefault)
{
    MessageBoxes realBoxes;
    Messages &boxes = realBoxes;
    const QMap<Messages::Buttons, Messages::Answer> answers{
        {Messages::Buttons::YesNo, Messages::Answer::Yes},
        {Messages::Buttons::YesNoCancel, Messages::Answer::Yes},
        {Messages::Buttons::YesOrElseNo, Messages::Answer::No},
    };
    for (auto answer = answers.begin(); answer != answers.end(); ++answer) {
        const auto asked = onNextDialog([](QWidget &dialog) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            key(dialog, Qt::Key_Return);
            EXPECT_FALSE(dialog.isVisible());
        });
        EXPECT_EQ(boxes.ask("Send it?", answer.key()), answer.value()) << int(answer.key());
        EXPECT_TRUE(asked->handled);
    }
}

TEST(MessageBox, ButtonsHaveUniqueMnemonicsAndTabReachesAll)
{
    MessageBoxes realBoxes;
    Messages &boxes = realBoxes;
    const auto asked = onNextDialog([](QWidget &dialog) {
        QMap<QString, QString> texts = mnemonicTexts(dialog);
        EXPECT_EQ(texts.size(), 3);
        EXPECT_EQ(sharedMnemonics(texts), QStringList());
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        expectReachableByTab(dialog, tabRound(dialog));
    });
    EXPECT_EQ(boxes.ask("Save?", Messages::Buttons::YesNoCancel), Messages::Answer::Cancel);
    EXPECT_TRUE(asked->handled);
}

} // namespace
