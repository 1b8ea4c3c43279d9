#pragma once

#include <QAbstractListModel>
#include <QStringList>

/// The rows of a document, one configuration line each, in file order. A row's text is the line as it stands in the
/// file; what is shown of it (Qt::DisplayRole) differs only in bytes that are not UTF-8, see shownText().
///
/// Commands work through many rows one after another, from the top or from the bottom. The rows are therefore kept with
/// a gap that moves to where the last one was inserted or removed: next to it, the next one costs nothing.
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

    /// @throws RuntimeError Overflow, with the limit and what would come of it, when count more rows do not fit
    void requireRoom(qsizetype count) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

    [[nodiscard]] QStringList rows() const;

    /// The text of a row that is there.
    [[nodiscard]] const QString &at(int row) const;

    /// Replaces all rows. @throws RuntimeError Overflow when there are more than maximumRows; nothing is changed then
    void setRows(const QStringList &rows);

    /// Inserts texts as rows from row on, which is at most the number of rows.
    /// @throws RuntimeError Overflow when there would be more than maximumRows; nothing is changed then
    void insert(int row, const QStringList &texts);

    /// Changes or removes a row that is there.
    void replace(int row, const QString &text);
    void remove(int row);

    /// Announces many changes as one: while it lives, views are told nothing; at its end they take all rows anew.
    class Bulk final
    {
    public:
        /// @param changes how many changes are to come; a few are announced one by one, so that views keep their place
        Bulk(RowList &rows, qsizetype changes);
        Bulk(const Bulk &) = delete;
        Bulk &operator=(const Bulk &) = delete;
        ~Bulk();

    private:
        RowList *m_rows;
    };

    /// All rows joined with CR LF, and one CR LF behind the last; an empty list gives an empty text.
    [[nodiscard]] QString text() const;

private:
    void moveGap(int row);

    /// The rows above the gap, and those below it in reverse order.
    QStringList m_above;
    QStringList m_below;
    bool m_isSilent = false;
};
