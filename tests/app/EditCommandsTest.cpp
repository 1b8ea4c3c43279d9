#include "tests/app/ProgramFixture.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

namespace {

class EditCommands : public Program
{
protected:
    void SetUp() override
    {
        fakeFiles.content["/a.zcf"] = "a1\r\na2\r\na3\r\n";
        QGuiApplication::clipboard()->setText("c1\r\nc2");
        start({"/a.zcf"});
        clickRow(list(document(0)), 1);
    }

    [[nodiscard]] QStringList rows() const { return document(0).rowList().rows(); }
    [[nodiscard]] static QString clipboard() { return QGuiApplication::clipboard()->text(); }
};

/// One way to run the commands: by menu, by toolbar, or by one of their keys.
struct Way
{
    const char *name;
    std::function<void(frmMain &)> cut;
    std::function<void(frmMain &)> copy;
    std::function<void(frmMain &)> paste;
    /// The toolbar has no button for it.
    std::function<void(frmMain &)> undo;
};

std::function<void(frmMain &)> byEntry(const char *entry)
{
    return [entry](frmMain &window) { trigger(window, entry); };
}

std::function<void(frmMain &)> byButton(const char *button)
{
    return [button](frmMain &window) { press(window, button); };
}

std::function<void(frmMain &)> byKey(Qt::Key pressed, Qt::KeyboardModifiers modifiers)
{
    return [=](frmMain &window) { key(window, pressed, modifiers); };
}

class EditWays : public EditCommands, public testing::WithParamInterface<Way>
{
};

TEST_P(EditWays, CutTakesTheSelectedRows)
{
    GetParam().cut(*window);
    EXPECT_EQ(rows(), (QStringList{"a1", "a3"}));
    EXPECT_EQ(clipboard(), "a2");
}

TEST_P(EditWays, CopyLeavesTheRows)
{
    clickRow(list(document(0)), 2, Qt::ControlModifier);
    GetParam().copy(*window);
    EXPECT_EQ(rows(), (QStringList{"a1", "a2", "a3"}));
    EXPECT_EQ(clipboard(), "a2\r\na3");
}

TEST_P(EditWays, PasteInsertsAboveTheCurrentRow)
{
    GetParam().paste(*window);
    EXPECT_EQ(rows(), (QStringList{"a1", "c1", "c2", "a2", "a3"}));
}

TEST_P(EditWays, UndoBringsBackWhatWasCut)
{
    GetParam().cut(*window);
    GetParam().undo(*window);
    EXPECT_EQ(rows(), (QStringList{"a1", "a2", "a3"}));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Each, EditWays, testing::Values(
    Way{"Menu", byEntry("mnuEditCut"), byEntry("mnuEditCopy"), byEntry("mnuEditPaste"), byEntry("mnuEditUndo")},
    Way{"ToolBar", byButton("Cut"), byButton("Copy"), byButton("Paste"), byEntry("mnuEditUndo")},
    Way{"Keys", byKey(Qt::Key_X, Qt::ControlModifier), byKey(Qt::Key_C, Qt::ControlModifier),
        byKey(Qt::Key_V, Qt::ControlModifier), byKey(Qt::Key_Z, Qt::ControlModifier)},
    Way{"OtherKeys", byKey(Qt::Key_Delete, Qt::ShiftModifier), byKey(Qt::Key_Insert, Qt::ControlModifier),
        byKey(Qt::Key_Insert, Qt::ShiftModifier), byKey(Qt::Key_Backspace, Qt::AltModifier)}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

TEST_F(EditCommands, CtrlSlashTogglesTheComment)
{
    key(*window, Qt::Key_Slash, Qt::ControlModifier);
    EXPECT_EQ(rows(), (QStringList{"a1", ";a2", "a3"}));
}

TEST_F(EditCommands, KeysDoNothingWithoutADocument)
{
    trigger(*window, "mnuFileClose");
    settle();
    for (const Qt::Key pressed : {Qt::Key_X, Qt::Key_C, Qt::Key_V, Qt::Key_Z, Qt::Key_Slash, Qt::Key_P})
        key(*window, pressed, Qt::ControlModifier);
    EXPECT_TRUE(captions().isEmpty());
    EXPECT_EQ(clipboard(), "c1\r\nc2");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

/// A window over the main window, as the editors are.
class OverMainWindow : public EditCommands, public testing::WithParamInterface<bool>
{
};

TEST_P(OverMainWindow, KeysBelongToIt)
{
    QDialog dialog(window.get());
    dialog.setModal(GetParam());
    auto *edit = new QLineEdit("text", &dialog);
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(edit);
    showActive(dialog);
    edit->setFocus();
    edit->selectAll();
    key(dialog, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "text");
    for (const Qt::Key pressed : {Qt::Key_N, Qt::Key_S, Qt::Key_W, Qt::Key_Z, Qt::Key_Slash})
        key(dialog, pressed, Qt::ControlModifier);
    key(dialog, Qt::Key_Delete, Qt::ShiftModifier);
    settle();
    EXPECT_EQ(captions(), QStringList{"/a.zcf"});
    EXPECT_EQ(rows(), (QStringList{"a1", "a2", "a3"}));
    EXPECT_EQ(fakeFiles.writes, 0);
}

INSTANTIATE_TEST_SUITE_P(Modal, OverMainWindow, testing::Bool(),
                         [](const auto &tested) { return tested.param ? "Yes" : "No"; });

// The context menu of the list

class ContextMenu : public EditCommands
{
protected:
    /// Asks for the list's menu as the keyboard does, and runs steps on it; a menu that they leave open is closed.
    void onMenu(const std::function<void(QMenu &menu)> &steps)
    {
        bool isShown = false;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, window.get(), [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu)
                return;
            poll.stop();
            isShown = true;
            steps(*menu);
            menu->close();
        });
        poll.start(0);
        QWidget &view = list(document(0));
        const QPoint place = view.rect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, place, view.mapToGlobal(place));
        QCoreApplication::sendEvent(&view, &event);
        EXPECT_TRUE(isShown);
    }
};

TEST_F(ContextMenu, HasTheEntriesOfTheEditAndItemMenus)
{
    QStringList shown;
    onMenu([&](QMenu &menu) {
        EXPECT_EQ(menu.objectName(), "mnuContext");
        for (const QAction *action : menu.actions()) {
            if (action->isVisible())
                shown << (action->isSeparator() ? QString("-") : action->objectName());
        }
    });
    EXPECT_EQ(shown, (QStringList{"mnuEditUndo", "-", "mnuEditCut", "mnuEditCopy", "mnuEditPaste", "-", "mnuItemNew",
                                  "mnuItemEdit", "mnuItemText", "mnuItemDelete", "mnuItemWizard"}));
}

TEST_F(ContextMenu, RunsItsEntriesByKeys)
{
    onMenu([](QMenu &menu) { QTest::keyClick(&menu, Qt::Key_D); });
    EXPECT_EQ(rows(), (QStringList{"a1", "a3"}));
    onMenu([](QMenu &menu) { QTest::keyClick(&menu, Qt::Key_U); });
    EXPECT_EQ(rows(), (QStringList{"a1", "a2", "a3"}));
}

TEST_F(ContextMenu, LeavesTheMenusOfTheMenuBarAsTheyAre)
{
    const auto count = [this](const char *menu) { return control<QMenu>(*window, menu)->actions().size(); };
    const qsizetype edit = count("mnuEdit");
    const qsizetype item = count("mnuItem");
    onMenu([](QMenu &) {});
    EXPECT_EQ(count("mnuEdit"), edit);
    EXPECT_EQ(count("mnuItem"), item);
    trigger(*window, "mnuItemDelete");
    EXPECT_EQ(rows(), (QStringList{"a1", "a3"}));
}

} // namespace
