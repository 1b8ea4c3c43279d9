#include "browse/EntryTree.h"

#include "browse/DirectoryLevels.h"

#include <limits>
#include <memory>

namespace {

constexpr int keyRole = Qt::UserRole;
constexpr int elsewhereRole = Qt::UserRole + 1;

QString placeholderKey(const QTreeWidgetItem &node)
{
    return EntryTree::keyOf(node) + QStringLiteral("::JUNK");
}

std::unique_ptr<QTreeWidgetItem> newItem(const QString &text, const QString &key)
{
    auto item = std::make_unique<QTreeWidgetItem>(QStringList{text});
    item->setData(0, keyRole, key);
    return item;
}

/// A child, whatever it is, is what makes a node expandable.
void addPlaceholder(QTreeWidgetItem &node)
{
    node.addChild(newItem(QStringLiteral("JUNK"), placeholderKey(node)).release());
}

} // namespace

EntryTree::EntryTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("Tree"));
    setAccessibleName(tr("Directory entries"));
    setHeaderHidden(true);
    setUniformRowHeights(true);
}

QTreeWidgetItem *EntryTree::newNode(const QString &name, const QString &key, bool isElsewhere)
{
    QTreeWidgetItem *node = newItem(name, key).release();
    node->setData(0, elsewhereRole, isElsewhere);
    if (!isElsewhere)
        addPlaceholder(*node);
    return node;
}

QString EntryTree::keyOf(const QTreeWidgetItem &node)
{
    return node.data(0, keyRole).toString();
}

bool EntryTree::isElsewhere(const QTreeWidgetItem &node)
{
    return node.data(0, elsewhereRole).toBool();
}

bool EntryTree::hasPlaceholder(const QTreeWidgetItem &node)
{
    return node.childCount() > 0 && keyOf(*node.child(0)) == placeholderKey(node);
}

void EntryTree::removeChildren(QTreeWidgetItem &node)
{
    for (QTreeWidgetItem *child : node.takeChildren())
        std::unique_ptr<QTreeWidgetItem>(child).reset();
}

void EntryTree::forgetChildren(QTreeWidgetItem &node)
{
    removeChildren(node);
    addPlaceholder(node);
    node.setExpanded(false);
}

QTreeWidgetItem *EntryTree::childNamed(const QTreeWidgetItem &node, const QString &name)
{
    for (int i = 0; i < node.childCount(); ++i) {
        if (isSameName(node.child(i)->text(0), name))
            return node.child(i);
    }
    return nullptr;
}

QTreeWidgetItem *EntryTree::contextOf(const QString &distinguishedName) const
{
    QTreeWidgetItem *found = nullptr;
    qsizetype least = std::numeric_limits<qsizetype>::max();
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const std::optional<QStringList> levels = levelsBelow(distinguishedName, topLevelItem(i)->text(0));
        if (levels && levels->size() < least) {
            least = levels->size();
            found = topLevelItem(i);
        }
    }
    return found;
}
