#include "browse/EntryTree.h"

#include "browse/DirectoryLevels.h"

#include <limits>

EntryTree::EntryTree(QWidget *parent)
    : PickerTree(QLatin1String("Tree"), tr("Directory entries"), QLatin1String("JUNK"), parent)
{
}

QTreeWidgetItem *EntryTree::newNodeElsewhere(const QString &name, const QString &key)
{
    QTreeWidgetItem *node = newLeaf(name, key);
    node->setData(0, elsewhereRole, true);
    return node;
}

bool EntryTree::isElsewhere(const QTreeWidgetItem &node)
{
    return node.data(0, elsewhereRole).toBool();
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
