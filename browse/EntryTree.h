#pragma once

#include <QTreeWidget>

/// A tree of directory entries. A node has the path of its entry as its key and the entry's name as its text. One that
/// has not been read yet has a placeholder below it, whose key is the node's followed by "::JUNK".
class EntryTree final : public QTreeWidget
{
    Q_OBJECT

public:
    explicit EntryTree(QWidget *parent);

    /// @param isElsewhere whether the entry is on another server; there is nothing to be read below it then
    [[nodiscard]] static QTreeWidgetItem *newNode(const QString &name, const QString &key, bool isElsewhere = false);

    [[nodiscard]] static QString keyOf(const QTreeWidgetItem &node);
    [[nodiscard]] static bool isElsewhere(const QTreeWidgetItem &node);

    /// Whether the node has not been read yet.
    [[nodiscard]] static bool hasPlaceholder(const QTreeWidgetItem &node);
    static void removeChildren(QTreeWidgetItem &node);
    /// Makes the node one that has not been read yet, closed.
    static void forgetChildren(QTreeWidgetItem &node);

    /// The child of that relative name; none when there is no such child.
    [[nodiscard]] static QTreeWidgetItem *childNamed(const QTreeWidgetItem &node, const QString &name);

    /// The top node of the tree that holds an entry; of several, of which one is in the other, the innermost.
    [[nodiscard]] QTreeWidgetItem *contextOf(const QString &distinguishedName) const;
};
