#include "editors/NameList.h"

#include "config/RowMetrics.h"
#include "platform/ByteText.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyledItemDelegate>

namespace {

constexpr int depthRole = Qt::UserRole;

/// How many lines of text a list has room for when the form is as small as can be.
constexpr int leastLines = 8;

class NameModel final : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    void setRows(std::vector<NameList::Row> rows)
    {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    }

    [[nodiscard]] int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : int(m_rows.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override
    {
        const NameList::Row &row = m_rows[size_t(index.row())];
        switch (role) {
        case Qt::DisplayRole:
        // A name may be longer than the list is wide.
        case Qt::ToolTipRole:
            // On one line, as rows of one height have to be.
            return RowMetrics::painted(shownText(row.name));
        case Qt::DecorationRole:
            return row.icon;
        case depthRole:
            return row.depth;
        default:
            return {};
        }
    }

private:
    std::vector<NameList::Row> m_rows;
};

class RowPainter final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem moved = option;
        moved.rect.setLeft(option.rect.left() + index.data(depthRole).toInt() * option.decorationSize.width());
        QStyledItemDelegate::paint(painter, moved, index);
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        // As wide as the list and no wider, so that a long name is shortened.
        return {0, QStyledItemDelegate::sizeHint(option, index).height()};
    }
};

} // namespace

NameList::NameList(QLatin1String name, Choice choice, QWidget *parent)
    : QListView(parent)
    , m_choice(choice)
{
    setObjectName(name);
    setModel(new NameModel(this));
    setItemDelegate(new RowPainter(this));
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideMiddle);
    setIconSize(QSize(1, 1) * style()->pixelMetric(QStyle::PM_SmallIconSize));
    setEditTriggers(NoEditTriggers);
    setMinimumHeight(leastLines * fontMetrics().lineSpacing() + 2 * frameWidth());
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex &index) { emit chosen(index.row()); });
    if (choice == Choice::BySelecting) {
        // The current row is no sign: a list makes one of its own when it gets the focus.
        connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this](const QItemSelection &selected) {
            if (!selected.isEmpty())
                emit chosen(selected.indexes().first().row());
        });
    }
}

void NameList::setRows(std::vector<Row> rows)
{
    static_cast<NameModel *>(model())->setRows(std::move(rows));
}

void NameList::selectRow(int row)
{
    const QSignalBlocker blocker(this);
    const QModelIndex index = model()->index(row, 0);
    setCurrentIndex(index);
    scrollTo(index);
}

void NameList::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // Otherwise the key would press the form's button.
    if (isEnter && m_choice == Choice::ByOpening && currentIndex().isValid())
        emit chosen(currentIndex().row());
    else
        QListView::keyPressEvent(event);
}

void NameList::mouseDoubleClickEvent(QMouseEvent *event)
{
    // The first click has chosen already; the second one would choose what has come under the mouse by that.
    event->accept();
}
