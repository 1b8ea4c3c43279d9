#pragma once

#include <QStringList>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

/// What tests do with the trees of pickers.

[[nodiscard]] inline QStringList childrenOf(const QTreeWidgetItem &parent)
{
    QStringList texts;
    for (int i = 0; i < parent.childCount(); ++i)
        texts << parent.child(i)->text(0);
    return texts;
}

/// The node that the texts lead to from the top; fails the test when there is none.
[[nodiscard]] inline QTreeWidgetItem &nodeAt(const QTreeWidget &tree, const QStringList &texts)
{
    QTreeWidgetItem *at = tree.invisibleRootItem();
    for (const QString &text : texts) {
        const qsizetype next = childrenOf(*at).indexOf(text);
        if (next < 0) {
            ADD_FAILURE() << "no node " << text.toStdString();
            return *at;
        }
        at = at->child(int(next));
    }
    return *at;
}

/// Clicks a node whose parents are expanded.
inline void clickNode(QTreeWidget &tree, const QTreeWidgetItem &node)
{
    tree.scrollToItem(&node);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, tree.visualItemRect(&node).center());
}
