#pragma once

#include "browse/PickerTree.h"

/// A tree of directory entries. A node has the path of its entry as its key and the entry's name as its text.
class EntryTree final : public PickerTree
{
    Q_OBJECT

public:
    explicit EntryTree(QWidget *parent);

    /// An entry that is on another server; there is nothing to be read below it.
    [[nodiscard]] static QTreeWidgetItem *newNodeElsewhere(const QString &name, const QString &key);
    [[nodiscard]] static bool isElsewhere(const QTreeWidgetItem &node);

    /// The child of that relative name; none when there is no such child.
    [[nodiscard]] static QTreeWidgetItem *childNamed(const QTreeWidgetItem &node, const QString &name);

    /// The top node of the tree that holds an entry; of several, of which one is in the other, the innermost.
    [[nodiscard]] QTreeWidgetItem *contextOf(const QString &distinguishedName) const;

private:
    static constexpr int elsewhereRole = firstFreeRole;
};
