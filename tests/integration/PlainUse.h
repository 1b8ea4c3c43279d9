#pragma once

#include "tests/config/PlainDocument.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// What a user's work with documents comes to, told once more as plainly as it can be. It shares nothing with the
/// program.
namespace plain {

/// What a field of the global settings shows, with its check box where it has one.
struct SettingShown
{
    QString text;
    bool isChecked = false;

    bool operator==(const SettingShown &) const = default;
};

/// A document window. Beside the rows it knows the file, and every undo step as a list of changes: after a paste the
/// older steps are taken back line by line, whatever stands there then.
class UsedDocument
{
public:
    Document document;
    QString path;
    QString caption;
    int changed = 0;
    bool isUndoEnabled = true;

    void load(const QStringList &lines);
    void insertLine(const QString &line);
    void change(int row, const QString &line);
    void removeSelected();
    /// @return false when it is refused
    bool move(bool isUp);
    void toggleComments();
    void paste(const QString &text);
    /// @param shown what the fields show, by key
    /// @param touched the keys whose fields the user has changed
    void applySettings(const QMap<QString, SettingShown> &shown, const QStringList &touched);
    [[nodiscard]] bool canUndo() const { return !m_steps.isEmpty(); }
    void undo();

private:
    struct Change
    {
        enum { Inserted, Replaced, Removed } kind;
        int line;
        QString before;
    };
    using Step = QList<Change>;

    void did(const Step &step);
    void takeBack(const Step &step);

    QList<Step> m_steps;
};

/// The bytes of rows in a file. Of bytes that are not UTF-8 only 0xFF is known.
[[nodiscard]] QByteArray bytesOf(const QStringList &rows);

/// The rows that a file's bytes are read as. @throws NegativeLength when the file holds empty lines only
[[nodiscard]] QStringList rowsOf(const QByteArray &bytes);

/// A text as it is shown.
[[nodiscard]] QString shown(QString text);

} // namespace plain
