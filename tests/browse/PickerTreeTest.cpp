#include "browse/PickerTree.h"

#include "tests/browse/TreeGestures.h"
#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

namespace {

class PickerTreeTest : public testing::Test
{
protected:
    PickerTreeTest()
    {
        for (const char *name : {"a", "b"})
            tree.addTopLevelItem(tree.newNode(name, QStringLiteral("/") + name));
        QObject::connect(&tree, &PickerTree::picked, &tree,
                         [this](const QTreeWidgetItem *node) { pickedKeys << PickerTree::keyOf(*node); });
        showActive(tree);
    }

    [[nodiscard]] QTreeWidgetItem &node(int index) const { return *tree.topLevelItem(index); }

    PickerTree tree{QLatin1String("Tree"), "Things", QLatin1String("Later"), nullptr};
    QStringList pickedKeys;
};

TEST_F(PickerTreeTest, ANodeThatHasNotBeenReadHasAPlaceholderThatIsNoNode)
{
    ASSERT_TRUE(PickerTree::hasPlaceholder(node(0)));
    EXPECT_EQ(node(0).child(0)->text(0), "Later");
    EXPECT_EQ(PickerTree::keyOf(*node(0).child(0)), "/a::Later");
    PickerTree::removePlaceholder(node(0));
    EXPECT_EQ(node(0).childCount(), 0);
    EXPECT_FALSE(PickerTree::hasPlaceholder(node(0)));
}

// A thing may be called as a placeholder is.
TEST_F(PickerTreeTest, APlaceholderIsNotKnownByItsName)
{
    PickerTree::removePlaceholder(node(0));
    node(0).addChild(tree.newNode("Later", "/a::Later"));
    EXPECT_FALSE(PickerTree::hasPlaceholder(node(0)));
    PickerTree::removePlaceholder(node(0));
    EXPECT_EQ(node(0).childCount(), 1);
}

TEST_F(PickerTreeTest, ALeafHasNothingToBeRead)
{
    node(0).addChild(PickerTree::newLeaf("leaf", "/a/leaf"));
    EXPECT_EQ(node(0).child(1)->childCount(), 0);
    EXPECT_EQ(PickerTree::keyOf(*node(0).child(1)), "/a/leaf");
}

TEST_F(PickerTreeTest, ANodeWhoseChildrenAreForgottenIsClosedAndCanBeReadAgain)
{
    PickerTree::removePlaceholder(node(0));
    node(0).addChild(tree.newNode("c", "/a/c"));
    node(0).setExpanded(true);
    tree.forgetChildren(node(0));
    EXPECT_FALSE(node(0).isExpanded());
    EXPECT_EQ(node(0).childCount(), 1);
    EXPECT_TRUE(PickerTree::hasPlaceholder(node(0)));
}

TEST_F(PickerTreeTest, MouseAndKeysPickAndTheFocusDoesNot)
{
    tree.clearFocus();
    tree.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(pickedKeys, QStringList());
    clickNode(tree, node(1));
    EXPECT_EQ(pickedKeys.value(0), "/b");
    pickedKeys.clear();
    // The same one once more.
    clickNode(tree, node(1));
    EXPECT_EQ(pickedKeys, QStringList{"/b"});
    pickedKeys.clear();
    key(tree, Qt::Key_Up);
    EXPECT_EQ(pickedKeys, QStringList{"/a"});
}

} // namespace
