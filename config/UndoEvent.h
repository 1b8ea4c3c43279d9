#pragma once

#include <QString>

#include <vector>

/// One undo step: the row changes of one command, in the order in which they were made. Rows are 16-bit numbers;
/// records are not, because a move writes two for each row.
class UndoEvent final
{
public:
    enum Type : qint16 {
        Empty = 0,
        Inserted = 1,
        Changed = 2,
        Removed = 3,
    };

    /// Max() + 1, also for a step without records.
    [[nodiscard]] int Count() const { return Max() + 1; }

    /// The highest index in use; 0 for a step without records.
    [[nodiscard]] int Max() const { return m_records.empty() ? 0 : int(m_records.size()) - 1; }

    /// Adds a record behind the others. The first one gets index 1: record 0 is never written and stays empty. Count()
    /// and Max() have always counted so, and who walks a step goes down to 0.
    /// @param line the row that the change applied to
    /// @param eventType one of Type
    /// @param text the row's text before a change, or of a removed row; empty for an inserted one
    void Add(qint16 line, qint16 eventType, const QString &text);

    /// The fields of the record at an index from 0 to Max(); record 0 is of type Empty.
    /// @throws RuntimeError InvalidCall for any other index
    [[nodiscard]] qint16 Line(int index) const { return at(index).line; }
    [[nodiscard]] qint16 EventType(int index) const { return at(index).type; }
    [[nodiscard]] const QString &Text(int index) const { return at(index).text; }

private:
    struct Record
    {
        qint16 line = 0;
        qint16 type = Empty;
        QString text;
    };

    [[nodiscard]] const Record &at(int index) const;

    /// Without records until the first is added, then with record 0.
    std::vector<Record> m_records;
};
