#include "tests/config/PlainDocument.h"

namespace plain {

QStringList Document::texts() const
{
    QStringList result;
    for (const Row &row : rows)
        result << row.text;
    return result;
}

QList<int> Document::selected() const
{
    QList<int> result;
    for (int i = 0; i < rows.size(); ++i) {
        if (rows[i].isSelected)
            result << i;
    }
    return result;
}

void Document::insertLine(const QString &line)
{
    remember();
    if (current < 0) {
        rows.append({line});
        return;
    }
    rows.insert(current, {line});
    ++current;
}

void Document::change(int row, const QString &line)
{
    remember();
    rows[row].text = line;
}

void Document::removeSelected()
{
    remember();
    const bool isCurrentRemoved = rows[current].isSelected;
    int keptAbove = 0;
    for (int i = 0; i < current; ++i)
        keptAbove += rows[i].isSelected ? 0 : 1;
    QList<Row> kept;
    for (const Row &row : rows) {
        if (!row.isSelected)
            kept << row;
    }
    rows = kept;
    current = keptAbove;
    if (!isCurrentRemoved)
        return;
    if (current == rows.size())
        --current;
    if (current >= 0)
        rows[current].isSelected = true;
}

bool Document::moveUp()
{
    if (rows.isEmpty() || rows.first().isSelected)
        return rows.isEmpty();
    remember();
    for (int i = 1; i < rows.size(); ++i) {
        if (!rows[i].isSelected)
            continue;
        rows.swapItemsAt(i, i - 1);
        if (current == i)
            current = i - 1;
        else if (current == i - 1)
            current = i;
    }
    return true;
}

bool Document::moveDown()
{
    if (rows.isEmpty() || rows.last().isSelected)
        return rows.isEmpty();
    remember();
    for (int i = int(rows.size()) - 2; i >= 0; --i) {
        if (!rows[i].isSelected)
            continue;
        rows.swapItemsAt(i, i + 1);
        if (current == i)
            current = i + 1;
        else if (current == i + 1)
            current = i;
    }
    return true;
}

void Document::toggleComments()
{
    remember();
    for (Row &row : rows) {
        if (!row.isSelected)
            continue;
        int spaces = 0;
        while (spaces < row.text.size() && row.text[spaces] == ' ')
            ++spaces;
        if (spaces < row.text.size() && row.text[spaces] == ';')
            row.text = row.text.left(spaces) + row.text.mid(spaces + 1);
        else
            row.text = ";" + row.text;
    }
}

void Document::rewrite(const QStringList &texts)
{
    remember();
    rows.clear();
    for (const QString &text : texts)
        rows.append({text});
    current = -1;
}

void Document::paste(const QStringList &lines)
{
    int at = current < 0 ? int(rows.size()) : current;
    for (const QString &line : lines)
        rows.insert(at++, {line});
    if (current >= 0)
        current += int(lines.size());
    m_before.clear();
}

void Document::undo()
{
    const QStringList before = m_before.takeLast();
    rows.clear();
    for (const QString &text : before)
        rows.append({text});
}

} // namespace plain
