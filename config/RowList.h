#pragma once

#include <QAbstractListModel>
#include <QStringList>

/// The rows of a document, one configuration line each, in file order. A row's text is the line as it stands in the
/// file; what is shown of it (Qt::DisplayRole) differs only in bytes that are not UTF-8, see shownText().
class RowList final : public QAbstractListModel
{
    Q_OBJECT

public:
    /// Row indexes are 16-bit signed numbers.
    static constexpr int maximumRows = 32767;

    using QAbstractListModel::QAbstractListModel;

    /// @param path the file that the rows come from, for the error
    /// @throws RuntimeError Overflow, with the limit and count, when count rows are more than a document can hold
    static void requireFit(qsizetype count, const QString &path = {});

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

    [[nodiscard]] const QStringList &rows() const { return m_rows; }

    /// Replaces all rows. @throws RuntimeError Overflow when there are more than maximumRows; nothing is changed then
    void setRows(const QStringList &rows);

    /// All rows joined with CR LF, and one CR LF behind the last; an empty list gives an empty text.
    [[nodiscard]] QString text() const;

private:
    QStringList m_rows;
};
