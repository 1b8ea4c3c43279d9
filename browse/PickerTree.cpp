#include "browse/PickerTree.h"

#include <memory>

namespace {

constexpr int keyRole = Qt::UserRole;
constexpr int placeholderRole = Qt::UserRole + 1;

} // namespace

PickerTree::PickerTree(QLatin1String name, const QString &accessibleName, QLatin1String placeholderText,
                       QWidget *parent)
    : QTreeWidget(parent)
    , m_placeholderText(placeholderText)
{
    setObjectName(name);
    setAccessibleName(accessibleName);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    connect(this, &QTreeWidget::itemClicked, this, &PickerTree::picked);
    // With the keys too. The current node is no sign: the tree makes one of its own when it gets the focus.
    connect(this, &QTreeWidget::itemSelectionChanged, this, [this] {
        const QList<QTreeWidgetItem *> selected = selectedItems();
        if (!selected.isEmpty())
            emit picked(selected.first());
    });
}

QTreeWidgetItem *PickerTree::newNode(const QString &text, const QString &key) const
{
    QTreeWidgetItem *node = newLeaf(text, key);
    addPlaceholder(*node);
    return node;
}

QTreeWidgetItem *PickerTree::newLeaf(const QString &text, const QString &key)
{
    auto node = std::make_unique<QTreeWidgetItem>(QStringList{text});
    node->setData(0, keyRole, key);
    return node.release();
}

QString PickerTree::keyOf(const QTreeWidgetItem &node)
{
    return node.data(0, keyRole).toString();
}

bool PickerTree::hasPlaceholder(const QTreeWidgetItem &node)
{
    return node.childCount() > 0 && node.child(0)->data(0, placeholderRole).toBool();
}

void PickerTree::removePlaceholder(QTreeWidgetItem &node)
{
    if (hasPlaceholder(node))
        std::unique_ptr<QTreeWidgetItem>(node.takeChild(0)).reset();
}

void PickerTree::forgetChildren(QTreeWidgetItem &node) const
{
    for (QTreeWidgetItem *child : node.takeChildren())
        std::unique_ptr<QTreeWidgetItem>(child).reset();
    addPlaceholder(node);
    node.setExpanded(false);
}

void PickerTree::addPlaceholder(QTreeWidgetItem &node) const
{
    QTreeWidgetItem *placeholder = newLeaf(m_placeholderText, keyOf(node) + QStringLiteral("::") + m_placeholderText);
    placeholder->setData(0, placeholderRole, true);
    node.addChild(placeholder);
}
