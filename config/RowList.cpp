#include "config/RowList.h"

#include "platform/ByteText.h"
#include "platform/RuntimeError.h"

void RowList::requireFit(qsizetype count, const QString &path)
{
    if (count > maximumRows) {
        throw RuntimeError(
            RuntimeError::Overflow, path,
            QStringLiteral("A document holds at most %1 lines. This one has %2.").arg(maximumRows).arg(count));
    }
}

int RowList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant RowList::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return shownText(m_rows[index.row()]);
}

void RowList::setRows(const QStringList &rows)
{
    requireFit(rows.size());
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

QString RowList::text() const
{
    static const QString lineEnd = QStringLiteral("\r\n");
    qsizetype size = 0;
    for (const QString &row : m_rows)
        size += row.size() + lineEnd.size();
    QString text;
    text.reserve(size);
    for (const QString &row : m_rows)
        text.append(row).append(lineEnd);
    return text;
}
