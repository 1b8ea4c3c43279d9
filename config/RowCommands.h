#pragma once

#include <QString>

#include <vector>

class RowChanges;
class RowList;

/// Which rows of a list are selected, and which one is current.
struct RowSelection
{
    /// In ascending order, each once.
    std::vector<int> rows;
    /// -1: none.
    int current = -1;

    [[nodiscard]] bool contains(int row) const;

    bool operator==(const RowSelection &) const = default;
};

/// The commands of a document on its rows. Each takes what is selected and returns what is selected afterwards.
class RowCommands final
{
public:
    RowCommands(RowList &rows, RowChanges &changes);

    /// Inserts a line before the current row, or behind the last when no row is current. What was selected stays so.
    /// @throws RuntimeError Overflow when there is no room
    [[nodiscard]] RowSelection insertLine(const QString &line, RowSelection selection);

    /// Removes the selected rows in one undo step. When the current row is among them, the row that takes its place, or
    /// the last one, becomes current and selected.
    [[nodiscard]] RowSelection removeSelected(const RowSelection &selection);

    /// Whether no selected row is in the way: the first one cannot go up, the last one cannot go down.
    [[nodiscard]] bool mayMoveUp(const RowSelection &selection) const;
    [[nodiscard]] bool mayMoveDown(const RowSelection &selection) const;

    /// Moves each selected row by one in one undo step; it stays selected.
    [[nodiscard]] RowSelection moveUp(const RowSelection &selection);
    [[nodiscard]] RowSelection moveDown(const RowSelection &selection);

    /// Removes the first ";" of each selected row that begins with one behind its spaces, and puts one in front of
    /// every other, in one undo step.
    void toggleComments(const RowSelection &selection);

    /// Inserts texts as rows above the current one, or behind the last when no row is current, without an undo record:
    /// a paste has never been taken back by Undo.
    /// @throws RuntimeError Overflow when there is no room; nothing is changed then
    [[nodiscard]] RowSelection insertUnrecorded(const QStringList &texts, RowSelection selection);

    /// The texts of the selected rows, joined with CR LF.
    [[nodiscard]] QString selectedText(const RowSelection &selection) const;

private:
    void moveRow(int row, int to);

    RowList &m_rows;
    RowChanges &m_changes;
};

/// Text from outside as rows: every LF is removed and the rest split at CR, empty pieces included. In a text without a
/// CR each LF ends a line: so do many programs write lines, and so does the toolkit hand them over on Windows.
[[nodiscard]] QStringList rowsOfText(QString text);
