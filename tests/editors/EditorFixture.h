#pragma once

#include "editors/ItemEditorForm.h"
#include "editors/ItemEditors.h"
#include "tests/editors/FakeDocument.h"
#include "tests/support/FakeAccounts.h"
#include "tests/support/FakeDirectory.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/FakeScrambler.h"
#include "tests/support/Gestures.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

/// Item editors over a document of rows, opened as a document opens them.
class Editors : public testing::Test
{
protected:
    Editors()
    {
        editors.setParentWindow(&window);
        showActive(window);
    }

    void prepare(ItemEditor &editor)
    {
        editor.setWindowToAffect(document);
        editor.setHost(host);
        editor.setRemoteFlag(!host.isEmpty());
    }

    ItemEditorForm &openForNew(ItemEditor &editor)
    {
        prepare(editor);
        editor.setWindowAddFlag(true);
        editor.setOKButtonCaption("Add");
        editor.SetDefaultItem();
        editor.Show();
        auto &form = dynamic_cast<ItemEditorForm &>(editor);
        awaitActive(form);
        return form;
    }

    ItemEditorForm &openForRow(ItemEditor &editor, qint16 row)
    {
        prepare(editor);
        editor.setWindowAddFlag(false);
        editor.setOKButtonCaption("Apply");
        editor.setWindowAddItem(row);
        editor.Show();
        auto &form = dynamic_cast<ItemEditorForm &>(editor);
        awaitActive(form);
        editor.SetItem(document.rows[row]);
        return form;
    }

    ItemEditorForm &add(ItemKind kind) { return openForNew(editors.newEditor(kind)); }
    ItemEditorForm &edit(ItemKind kind, qint16 row) { return openForRow(editors.sharedEditor(kind), row); }

    /// Opens a line as the document's only row.
    ItemEditorForm &editLine(ItemKind kind, const QString &line)
    {
        document.rows = QStringList{line};
        return edit(kind, 0);
    }

    /// What a line becomes when it is edited without a change.
    QString rewritten(ItemKind kind, const QString &line)
    {
        press(editLine(kind, line), "OKButton");
        return document.rows[0];
    }

    /// The text of a field.
    [[nodiscard]] static QString textOf(const QWidget &form, const char *field)
    {
        return control<QLineEdit>(form, field)->text();
    }

    /// Puts text in place of what a field shows, as from the clipboard.
    static void enter(const QWidget &form, const char *field, const QString &text)
    {
        auto *edit = control<QLineEdit>(form, field);
        ASSERT_TRUE(edit->isVisible() && edit->isEnabled()) << field;
        edit->selectAll();
        edit->insert(text);
    }

    [[nodiscard]] static bool isChecked(const QWidget &form, const char *box)
    {
        return control<QCheckBox>(form, box)->isChecked();
    }

    /// The letters whose boxes are checked, options among them.
    [[nodiscard]] static QStringList checkedBoxes(const QWidget &form)
    {
        QStringList names;
        for (const QCheckBox *box : form.findChildren<QCheckBox *>()) {
            if (box->isChecked())
                names << box->objectName().mid(5);
        }
        return names;
    }

    static void pressAll(const QWidget &form, const QStringList &boxes)
    {
        for (const QString &box : boxes)
            press(form, box.toLatin1());
    }

    FakeMessages messages;
    const UseMessages use{messages};
    FakeDocument document;
    /// The host of the document, for editors that are opened from now on.
    QString host;
    QWidget window;
    FakeAccounts accounts;
    FakeFileSystem fileSystem;
    FakeRegistry registry;
    FakeDirectory directory;
    FakeScrambler scrambler;
    const EditorServices services{messages, accounts, fileSystem, registry, directory, scrambler};
    ItemEditors editors{services};
};
