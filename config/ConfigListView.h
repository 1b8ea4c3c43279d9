#pragma once

#include <QListView>

class RowDelegate;
struct RowSelection;

/// The list of a document's rows. Several rows can be selected; the current row is the one that commands refer to, and
/// there is none until the user has chosen one.
class ConfigListView final : public QListView
{
    Q_OBJECT

public:
    explicit ConfigListView(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model) override;

    /// The zero-based index of the current row; -1 when there is none.
    [[nodiscard]] int listIndex() const { return currentIndex().row(); }

    /// What is selected. Giving it shows the current row.
    [[nodiscard]] RowSelection rowSelection() const;
    void setRowSelection(const RowSelection &selection);

    /// How far the list can be scrolled sideways, in device-independent pixels. Giving it lays the list out again.
    void setHorizontalExtent(int pixels);
    [[nodiscard]] int horizontalExtent() const;

    /// The width of the widest of rows, each prefixed by two spaces, in the list's font.
    [[nodiscard]] int widestRow(const QStringList &rows) const;

    /// The list takes the font; its kerning is switched off, see RowMetrics.
    void setRowFont(const QFont &font);

signals:
    /// Rows are measured and painted in another font from now on.
    void rowFontChanged();
    /// Enter or Delete was pressed without a modifier.
    void editRequested();
    void removeRequested();
    /// A menu for the rows is wanted. @param position on the screen
    void menuRequested(const QPoint &position);

protected:
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    [[nodiscard]] bool scrollSideways(int key);
    /// Where a menu goes that a key asks for, on the screen.
    [[nodiscard]] QPoint belowCurrentRow() const;
    void takeFont();
    void forgetCurrent();

    RowDelegate *m_delegate;
};
