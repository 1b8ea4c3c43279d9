#include "config/RowCommands.h"

#include "config/ConfigLine.h"
#include "config/RowChanges.h"
#include "config/RowList.h"

#include <algorithm>

namespace {

constexpr QChar comment = u';';
const QString lineEnd = QStringLiteral("\r\n");

/// A move removes a row and inserts it again.
constexpr int changesPerMove = 2;

QString withCommentToggled(const QString &row)
{
    if (!trimSpaces(row).startsWith(comment))
        return comment + row;
    QString result = row;
    return result.remove(row.indexOf(comment), 1);
}

RowSelection shiftedBehind(RowSelection selection, int row, int by)
{
    for (int &selected : selection.rows)
        selected += selected >= row ? by : 0;
    if (selection.current >= row)
        selection.current += by;
    return selection;
}

} // namespace

bool RowSelection::contains(int row) const
{
    return std::binary_search(rows.begin(), rows.end(), row);
}

RowCommands::RowCommands(RowList &rows, RowChanges &changes)
    : m_rows(rows)
    , m_changes(changes)
{
}

RowSelection RowCommands::insertLine(const QString &line, RowSelection selection)
{
    const int row = selection.current;
    const int end = m_changes.insert(line, row);
    return row < 0 ? selection : shiftedBehind(std::move(selection), row, end - row);
}

RowSelection RowCommands::removeSelected(const RowSelection &selection)
{
    const RowList::Bulk bulk(m_rows, qsizetype(selection.rows.size()));
    const RowChanges::Group group(m_changes);
    for (auto row = selection.rows.rbegin(); row != selection.rows.rend(); ++row)
        m_changes.remove(*row);

    const auto above = std::lower_bound(selection.rows.begin(), selection.rows.end(), selection.current);
    const int current = selection.current - int(above - selection.rows.begin());
    if (!selection.contains(selection.current))
        return {{}, current};
    const int next = std::min(current, m_rows.rowCount() - 1);
    return next < 0 ? RowSelection() : RowSelection{{next}, next};
}

bool RowCommands::mayMoveUp(const RowSelection &selection) const
{
    return !selection.contains(0);
}

bool RowCommands::mayMoveDown(const RowSelection &selection) const
{
    return !selection.contains(m_rows.rowCount() - 1);
}

RowSelection RowCommands::moveUp(const RowSelection &selection)
{
    const RowList::Bulk bulk(m_rows, changesPerMove * qsizetype(selection.rows.size()));
    const RowChanges::Group group(m_changes);
    RowSelection moved;
    moved.current = selection.current;
    for (const int row : selection.rows) {
        moveRow(row, row - 1);
        moved.rows.push_back(row - 1);
        if (selection.current == row)
            moved.current = row - 1;
        else if (moved.current == row - 1)
            moved.current = row;
    }
    return moved;
}

RowSelection RowCommands::moveDown(const RowSelection &selection)
{
    const RowList::Bulk bulk(m_rows, changesPerMove * qsizetype(selection.rows.size()));
    const RowChanges::Group group(m_changes);
    RowSelection moved;
    moved.current = selection.current;
    for (auto row = selection.rows.rbegin(); row != selection.rows.rend(); ++row) {
        moveRow(*row, *row + 1);
        moved.rows.push_back(*row + 1);
        if (selection.current == *row)
            moved.current = *row + 1;
        else if (moved.current == *row + 1)
            moved.current = *row;
    }
    std::reverse(moved.rows.begin(), moved.rows.end());
    return moved;
}

void RowCommands::toggleComments(const RowSelection &selection)
{
    const RowList::Bulk bulk(m_rows, qsizetype(selection.rows.size()));
    const RowChanges::Group group(m_changes);
    for (const int row : selection.rows)
        m_changes.replace(withCommentToggled(m_rows.at(row)), row);
}

RowSelection RowCommands::insertUnrecorded(const QStringList &texts, RowSelection selection)
{
    const int row = selection.current;
    m_rows.insert(row < 0 ? m_rows.rowCount() : row, texts);
    return row < 0 ? selection : shiftedBehind(std::move(selection), row, int(texts.size()));
}

QString RowCommands::selectedText(const RowSelection &selection) const
{
    QString text;
    for (const int row : selection.rows)
        text += m_rows.at(row) + lineEnd;
    text.chop(lineEnd.size());
    return text;
}

void RowCommands::moveRow(int row, int to)
{
    const QString text = m_rows.at(row);
    m_changes.remove(row);
    (void)m_changes.insert(text, to);
}

QStringList rowsOfText(QString text)
{
    constexpr QChar lf = u'\n';
    constexpr QChar cr = u'\r';
    if (text.contains(cr))
        text.remove(lf);
    else
        text.replace(lf, cr);
    return text.split(cr);
}
