#pragma once

#include "editors/ConfigWizardInfo.h"
#include "editors/ConfigWizards.h"
#include "editors/ItemEditorForm.h"
#include "editors/ItemEditors.h"
#include "tests/app/ProgramFixture.h"
#include "tests/support/FakeAccounts.h"
#include "tests/support/FakeDirectory.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/FakeScrambler.h"

#include <QLineEdit>
#include <QTest>

/// The program with its own item editors.
class ProgramWithEditors : public Program
{
protected:
    ProgramWithEditors()
    {
        editorFactory = &itemEditors;
        optional.globalSettings = &wizards;
        fakeFiles.content["/a.zcf"] = "; a\r\n\\\\server\\x t\r\n";
    }

    // Documents close their editors at their end.
    ~ProgramWithEditors() override { window.reset(); }

    void open()
    {
        start({"/a.zcf"});
        itemEditors.setParentWindow(window.get());
        wizards.setParentWindow(window.get());
    }

    /// The editors that are open.
    [[nodiscard]] QList<ItemEditorForm *> openEditors() const
    {
        QList<ItemEditorForm *> result;
        for (ItemEditorForm *editor : window->findChildren<ItemEditorForm *>()) {
            if (editor->isVisible())
                result << editor;
        }
        return result;
    }

    /// The one editor that is open.
    [[nodiscard]] ItemEditorForm &editor() const
    {
        const QList<ItemEditorForm *> all = openEditors();
        EXPECT_EQ(all.size(), 1);
        return *all.first();
    }

    static void enter(QWidget &form, const char *field, const QString &text)
    {
        control<QLineEdit>(form, field)->selectAll();
        control<QLineEdit>(form, field)->insert(text);
    }

    void doubleClickRow(int row)
    {
        ConfigListView &rows = list(document(0));
        const QPoint at = rows.visualRect(rows.model()->index(row, 0)).center();
        clickRow(rows, row);
        QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, at);
    }

    /// The editors of global settings that are open.
    [[nodiscard]] QList<ConfigWizardInfo *> openWizards() const
    {
        QList<ConfigWizardInfo *> result;
        for (ConfigWizardInfo *wizard : window->findChildren<ConfigWizardInfo *>()) {
            if (wizard->isVisible())
                result << wizard;
        }
        return result;
    }

    FakeAccounts accounts;
    FakeFileSystem fileSystem;
    FakeRegistry registry;
    FakeDirectory directory;
    FakeScrambler scrambler;
    ItemEditors itemEditors{{messages, accounts, fileSystem, registry, directory, scrambler}};
    ConfigWizards wizards{messages};
};
