#pragma once

#include "browse/BrowseLDAP.h"
#include "browse/EntryTree.h"
#include "tests/browse/TreeGestures.h"
#include "tests/support/FakeDirectory.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScrambler.h"
#include "tests/support/Gestures.h"

#include <QLineEdit>
#include <QListWidget>

#include <gtest/gtest.h>

#include <memory>

inline const QString notConnected = "Could not connect to directory";

/// The picker of directory entries over a directory in memory.
class BrowseLDAPTest : public testing::Test
{
protected:
    BrowseLDAPTest()
    {
        directory.add("dc=example,dc=com", {"objectClass", "dc"});
        directory.add("ou=people,dc=example,dc=com", {"objectClass", "ou"});
        directory.add("cn=Ann,ou=people,dc=example,dc=com", {"objectClass", "cn", "sn", "mail"});
        directory.add("cn=Smith\\, John,ou=people,dc=example,dc=com", {"objectClass", "cn"});
        directory.add("o=Second", {"objectClass", "o"});
        directory.password = "secret";
    }

    /// Opens the picker as an editor does.
    void open(const QString &object = {})
    {
        picker = std::make_unique<BrowseLDAP>(directory, scrambler, messages, nullptr);
        picker->SetItem(object);
        showActive(*picker);
        QCoreApplication::processEvents();
    }

    [[nodiscard]] EntryTree &tree() const { return *control<EntryTree>(*picker, "Tree"); }
    [[nodiscard]] QListWidget &properties() const { return *control<QListWidget>(*picker, "Prop"); }
    [[nodiscard]] QString textOf(const char *field) const { return control<QLineEdit>(*picker, field)->text(); }
    void enter(const char *field, const QString &text) const { control<QLineEdit>(*picker, field)->setText(text); }

    [[nodiscard]] QStringList roots() const { return childrenOf(*tree().invisibleRootItem()); }
    [[nodiscard]] QTreeWidgetItem &node(const QStringList &texts) const { return nodeAt(tree(), texts); }
    void click(const QTreeWidgetItem &clicked) const { clickNode(tree(), clicked); }

    [[nodiscard]] QStringList propertyNames() const
    {
        QStringList names;
        for (int i = 0; i < properties().count(); ++i)
            names << properties().item(i)->text();
        return names;
    }

    [[nodiscard]] QStringList selectedProperties() const
    {
        QStringList names;
        for (int i = 0; i < properties().count(); ++i) {
            if (properties().item(i)->isSelected())
                names << properties().item(i)->text();
        }
        return names;
    }

    [[nodiscard]] QString selectedNode() const
    {
        const QList<QTreeWidgetItem *> selected = tree().selectedItems();
        return selected.isEmpty() ? QString() : selected.first()->text(0);
    }

    [[nodiscard]] QString confirmed() const
    {
        press(*picker, "OKButton");
        EXPECT_EQ(picker->result(), QDialog::Accepted);
        return picker->url();
    }

    FakeDirectory directory;
    FakeScrambler scrambler;
    FakeMessages messages;
    const UseMessages use{messages};
    std::unique_ptr<BrowseLDAP> picker;
};
