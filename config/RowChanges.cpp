#include "config/RowChanges.h"

#include "config/RowList.h"

#include <algorithm>

RowChanges::RowChanges(RowList &rows)
    : m_rows(rows)
{
}

int RowChanges::insert(const QString &text, int position)
{
    const QStringList pieces = text.split(QStringLiteral("\r\n"));
    int row = position < 0 ? m_rows.rowCount() : position;
    m_rows.insert(row, pieces);
    UndoEvent &step = takeStep();
    for (qsizetype i = 0; i < pieces.size(); ++i)
        step.Add(static_cast<qint16>(row++), UndoEvent::Inserted, {});
    return row;
}

void RowChanges::replace(const QString &text, int row)
{
    takeStep().Add(static_cast<qint16>(row), UndoEvent::Changed, m_rows.at(row));
    m_rows.replace(row, text);
}

void RowChanges::remove(int row)
{
    takeStep().Add(static_cast<qint16>(row), UndoEvent::Removed, m_rows.at(row));
    m_rows.remove(row);
}

RowChanges::Group::Group(RowChanges &changes)
    : m_changes(changes)
{
    m_changes.m_grouping = Grouping::Starting;
}

RowChanges::Group::~Group()
{
    m_changes.m_grouping = Grouping::None;
}

int RowChanges::undo(int current)
{
    const UndoEvent &step = m_steps.back();
    requireFitAfterUndo(step);
    {
        const RowList::Bulk bulk(m_rows, step.Max());
        for (int i = step.Max(); i >= 0; --i) {
            const int line = step.Line(i);
            switch (step.EventType(i)) {
            case UndoEvent::Inserted:
                if (line < m_rows.rowCount()) {
                    m_rows.remove(line);
                    current -= current > line ? 1 : 0;
                }
                break;
            case UndoEvent::Changed:
                if (line < m_rows.rowCount())
                    m_rows.replace(line, step.Text(i));
                break;
            case UndoEvent::Removed:
                if (line <= m_rows.rowCount()) {
                    m_rows.insert(line, {step.Text(i)});
                    current += current >= line ? 1 : 0;
                }
                break;
            default:
                break;
            }
        }
    }
    m_steps.pop_back();
    return std::min(current, m_rows.rowCount() - 1);
}

UndoEvent &RowChanges::takeStep()
{
    if (m_grouping != Grouping::Open)
        m_steps.emplace_back();
    if (m_grouping == Grouping::Starting)
        m_grouping = Grouping::Open;
    return m_steps.back();
}

void RowChanges::requireFitAfterUndo(const UndoEvent &step) const
{
    int count = m_rows.rowCount();
    int most = count;
    for (int i = step.Max(); i >= 0; --i) {
        if (step.EventType(i) == UndoEvent::Inserted && step.Line(i) < count)
            --count;
        else if (step.EventType(i) == UndoEvent::Removed && step.Line(i) <= count)
            most = std::max(most, ++count);
    }
    m_rows.requireRoom(most - m_rows.rowCount());
}
