#pragma once

#include <QTreeWidget>

/// A tree of which one node is picked, and in which the nodes below another one are read when that is expanded. A node
/// has a key. One that has not been read yet has a placeholder below it: a child, whatever it is, is what makes it
/// expandable. The placeholder's key is the node's followed by "::" and the placeholder's text.
class PickerTree : public QTreeWidget
{
    Q_OBJECT

public:
    /// @param placeholderText of all placeholders of the tree
    PickerTree(QLatin1String name, const QString &accessibleName, QLatin1String placeholderText, QWidget *parent);

    /// A node that has not been read yet. It is in no tree.
    [[nodiscard]] QTreeWidgetItem *newNode(const QString &text, const QString &key) const;
    /// A node below which there is nothing to be read.
    [[nodiscard]] static QTreeWidgetItem *newLeaf(const QString &text, const QString &key);

    [[nodiscard]] static QString keyOf(const QTreeWidgetItem &node);

    /// Whether the node has not been read yet.
    [[nodiscard]] static bool hasPlaceholder(const QTreeWidgetItem &node);
    /// Removes the placeholder, where there is one.
    static void removePlaceholder(QTreeWidgetItem &node);
    /// Makes the node one that has not been read yet, closed.
    void forgetChildren(QTreeWidgetItem &node) const;

signals:
    /// The user has gone to a node, with the mouse or the keys. A click may tell it twice.
    void picked(const QTreeWidgetItem *node);

protected:
    /// The data roles of nodes that derived trees may use begin here.
    static constexpr int firstFreeRole = Qt::UserRole + 2;

private:
    void addPlaceholder(QTreeWidgetItem &node) const;

    QLatin1String m_placeholderText;
};
