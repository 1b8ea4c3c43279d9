#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A document's rows and its commands once more, as plainly as they can be told: a list of rows, each with its mark of
/// being selected, copied whole for every undo step. It shares nothing with the program's own.
namespace plain {

struct Row
{
    QString text;
    bool isSelected = false;

    bool operator==(const Row &) const = default;
};

class Document
{
public:
    QList<Row> rows;
    int current = -1;

    [[nodiscard]] QStringList texts() const;
    [[nodiscard]] QList<int> selected() const;

    void insertLine(const QString &line);
    void change(int row, const QString &line);
    void removeSelected();
    /// @return false when it is refused
    bool moveUp();
    bool moveDown();
    void toggleComments();
    /// One step that leaves these texts; nothing is selected then.
    void rewrite(const QStringList &texts);
    /// Without an undo step; the older ones are not known to fit any more.
    void paste(const QStringList &lines);

    [[nodiscard]] bool canUndo() const { return !m_before.isEmpty(); }
    /// The rows' texts are as they were before the newest step.
    void undo();

private:
    void remember() { m_before << texts(); }

    QList<QStringList> m_before;
};

} // namespace plain
