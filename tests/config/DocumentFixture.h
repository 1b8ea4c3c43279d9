#pragma once

#include "config/ConfigForm.h"
#include "config/ConfigListView.h"
#include "tests/support/FakeEditors.h"
#include "tests/support/FakeFileAccess.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakePreferences.h"
#include "tests/support/FakeShell.h"
#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QPointer>

#include <cmath>

const QString documentPath = QStringLiteral("/configs/server.zcf");
const QString closeQuestion = QStringLiteral("The configuration has changed. Save changes before closing?");

inline QByteArray numberedLines(int count)
{
    QByteArray bytes;
    for (int i = 1; i <= count; ++i)
        bytes += "line " + QByteArray::number(i) + "\r\n";
    return bytes;
}

/// A document window over fake services.
class Document : public testing::Test
{
protected:
    Document() = default;
    ~Document() override { delete form; }

    void load(const QByteArray &bytes, qint16 mode = 0)
    {
        files.content[documentPath] = bytes;
        form->file().SetInfo(documentPath);
        qint16 result = 0;
        form->Form_Load_Data(mode, result);
        EXPECT_EQ(result, 1);
    }

    [[nodiscard]] ConfigListView &list() const { return *control<ConfigListView>(*form, "ConfigList"); }

    [[nodiscard]] QStringList rows() const { return form->rowList().rows(); }

    /// Selects rows as a user does, by clicks; the last one becomes current.
    void select(const QList<int> &wanted) const
    {
        for (const int row : wanted)
            clickRow(list(), row, row == wanted.first() ? Qt::NoModifier : Qt::ControlModifier);
    }

    [[nodiscard]] QList<int> selected() const
    {
        const RowSelection selection = list().rowSelection();
        return {selection.rows.begin(), selection.rows.end()};
    }

    /// Loads lines and shows the document as the active one.
    void open(const QStringList &lines)
    {
        load(lines.join("\r\n").toUtf8());
        form->activateDocument();
        showActive(*form);
        list().setFocus();
    }

    [[nodiscard]] int extentOf(const QString &row) const
    {
        return int(std::ceil(QFontMetricsF(list().font()).horizontalAdvance("  " + row)));
    }

    FakeFileAccess files;
    FakeMessages messages;
    const UseMessages use{messages};
    FakeShell shell;
    FakeEditors editors;
    FakePreferences preferences;
    QPointer<ConfigForm> form = new ConfigForm({files, messages, shell, editors, preferences});
};
