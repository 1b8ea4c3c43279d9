#pragma once

#include "config/UndoEvent.h"

#include <QString>

#include <vector>

class RowList;

/// The changes that commands make to a document's rows, each recorded so that it can be taken back, and the undo steps
/// that come of it. There is no redo, and the number of steps has no limit.
class RowChanges final
{
public:
    explicit RowChanges(RowList &rows);

    /// Inserts text as rows: it is split at CR LF, and each piece becomes a row.
    /// @param position where the first piece goes; -1: behind the last row
    /// @return the position behind the last piece
    /// @throws RuntimeError Overflow when the rows do not fit; nothing is changed then
    int insert(const QString &text, int position);

    /// Changes or removes a row that is there.
    void replace(const QString &text, int row);
    void remove(int row);

    /// Joins the changes made while it lives into one undo step. Without it each change is a step of its own.
    class Group final
    {
    public:
        explicit Group(RowChanges &changes);
        Group(const Group &) = delete;
        Group &operator=(const Group &) = delete;
        ~Group();

    private:
        RowChanges &m_changes;
    };

    [[nodiscard]] bool canUndo() const { return !m_steps.empty(); }

    /// Takes back the newest step; there has to be one. Rows may have changed since without a record; a record of a row
    /// that is not there any more is passed over.
    /// @param current the current row, -1 for none
    /// @return where that row is then, or what is in its place; -1 when there was none or no row is left
    /// @throws RuntimeError Overflow when the rows that come back do not fit; nothing is changed then, and the step
    /// stays
    [[nodiscard]] int undo(int current);

    /// Forgets all steps: the rows are others.
    void forget() { m_steps.clear(); }

private:
    /// How the next change finds its step: in one of its own, as the first of a group, or in the group's.
    enum class Grouping : qint16 { None = 0, Starting = 1, Open = 2 };

    [[nodiscard]] UndoEvent &takeStep();
    void requireFitAfterUndo(const UndoEvent &step) const;

    RowList &m_rows;
    std::vector<UndoEvent> m_steps;
    Grouping m_grouping = Grouping::None;
};
