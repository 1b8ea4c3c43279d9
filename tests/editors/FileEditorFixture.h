#pragma once

#include "tests/editors/EditorFixture.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QListView>

/// The editor for files over drives, folders and files in memory.
class FileEditor : public Editors
{
protected:
    FileEditor()
    {
        fileSystem.addDrive("C:\\");
        fileSystem.addDrive("D:\\", DriveKind::Removable);
        fileSystem.addFile("C:\\boot.ini");
        fileSystem.addFile("C:\\Windows\\notepad.exe");
        fileSystem.addFile("C:\\Windows\\WIN.INI");
        fileSystem.addFolder("C:\\Windows\\System32\\drivers");
        fileSystem.addFolder("C:\\Temp");
        fileSystem.addFolder("D:\\data");
        fileSystem.addDrive("\\\\host\\C$\\");
        fileSystem.addFile("\\\\host\\C$\\boot.ini");
        fileSystem.addFile("\\\\host\\C$\\there\\file");
    }

    ItemEditorForm &addFile() { return add(ItemKind::File); }

    ItemEditorForm &editLine(const QString &line) { return Editors::editLine(ItemKind::File, line); }
    QString rewritten(const QString &line) { return Editors::rewritten(ItemKind::File, line); }

    static QListView &list(const QWidget &form, const char *name) { return *control<QListView>(form, name); }

    [[nodiscard]] static QStringList namesIn(const QWidget &form, const char *name)
    {
        QStringList names;
        for (int row = 0; row < list(form, name).model()->rowCount(); ++row)
            names << list(form, name).model()->index(row, 0).data().toString();
        return names;
    }

    [[nodiscard]] static QStringList folders(const QWidget &form) { return namesIn(form, "DirList"); }
    [[nodiscard]] static QStringList files(const QWidget &form) { return namesIn(form, "FileList"); }

    /// The selected row's name; empty when none is selected.
    [[nodiscard]] static QString selectedIn(const QWidget &form, const char *name)
    {
        const QModelIndexList selected = list(form, name).selectionModel()->selectedIndexes();
        return selected.isEmpty() ? QString() : selected.first().data().toString();
    }

    static void clickName(const QWidget &form, const char *name, const QString &text)
    {
        const qsizetype row = namesIn(form, name).indexOf(text);
        ASSERT_GE(row, 0) << text.toStdString();
        clickRow(list(form, name), int(row));
    }

    [[nodiscard]] static QString shownDrive(const QWidget &form)
    {
        return control<QComboBox>(form, "AllDriveList")->currentText();
    }

    /// Chooses a drive with the keys.
    static void chooseDrive(const QWidget &form, QChar letter)
    {
        auto *drives = control<QComboBox>(form, "AllDriveList");
        QTest::keyClicks(drives, letter);
        QTest::keyClick(drives->view(), Qt::Key_Return);
    }

    [[nodiscard]] static QString objectOf(const QWidget &form) { return textOf(form, "ObjectName"); }
};
