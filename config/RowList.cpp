#include "config/RowList.h"

#include "platform/ByteText.h"
#include "platform/RuntimeError.h"

namespace {

constexpr qsizetype fewChanges = 64;

/// @param sentence "%1" stands for the number of rows
void requireRows(qsizetype count, const QString &path, const QString &sentence)
{
    if (count > RowList::maximumRows) {
        throw RuntimeError(RuntimeError::Overflow, path,
                           QStringLiteral("A document holds at most %1 lines. ").arg(RowList::maximumRows) +
                               sentence.arg(count));
    }
}

} // namespace

void RowList::requireFit(qsizetype count, const QString &path)
{
    requireRows(count, path, QStringLiteral("This one has %1."));
}

void RowList::requireRoom(qsizetype count) const
{
    requireRows(rowCount() + count, {}, QStringLiteral("This one would have %1."));
}

int RowList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_above.size() + m_below.size());
}

QVariant RowList::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return shownText(at(index.row()));
}

QStringList RowList::rows() const
{
    QStringList result = m_above;
    result.reserve(rowCount());
    result.append(QStringList(m_below.crbegin(), m_below.crend()));
    return result;
}

const QString &RowList::at(int row) const
{
    return row < m_above.size() ? m_above[row] : m_below[rowCount() - 1 - row];
}

void RowList::setRows(const QStringList &rows)
{
    requireFit(rows.size());
    beginResetModel();
    m_above = rows;
    m_below.clear();
    endResetModel();
}

void RowList::insert(int row, const QStringList &texts)
{
    if (texts.isEmpty())
        return;
    requireRoom(texts.size());
    if (!m_isSilent)
        beginInsertRows({}, row, row + int(texts.size()) - 1);
    moveGap(row);
    m_above.append(texts);
    if (!m_isSilent)
        endInsertRows();
}

void RowList::replace(int row, const QString &text)
{
    (row < m_above.size() ? m_above[row] : m_below[rowCount() - 1 - row]) = text;
    if (!m_isSilent)
        emit dataChanged(index(row), index(row));
}

void RowList::remove(int row)
{
    if (!m_isSilent)
        beginRemoveRows({}, row, row);
    moveGap(row);
    m_below.removeLast();
    if (!m_isSilent)
        endRemoveRows();
}

QString RowList::text() const
{
    static const QString lineEnd = QStringLiteral("\r\n");
    qsizetype size = 0;
    for (int row = 0; row < rowCount(); ++row)
        size += at(row).size() + lineEnd.size();
    QString text;
    text.reserve(size);
    for (int row = 0; row < rowCount(); ++row)
        text.append(at(row)).append(lineEnd);
    return text;
}

void RowList::moveGap(int row)
{
    while (m_above.size() > row)
        m_below.append(m_above.takeLast());
    while (m_above.size() < row)
        m_above.append(m_below.takeLast());
}

RowList::Bulk::Bulk(RowList &rows, qsizetype changes)
    : m_rows(changes > fewChanges && !rows.m_isSilent ? &rows : nullptr)
{
    if (!m_rows)
        return;
    m_rows->beginResetModel();
    m_rows->m_isSilent = true;
}

RowList::Bulk::~Bulk()
{
    if (!m_rows)
        return;
    m_rows->m_isSilent = false;
    m_rows->endResetModel();
}
