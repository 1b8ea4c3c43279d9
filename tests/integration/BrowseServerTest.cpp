#include "browse/BrowseLDAP.h"
#include "browse/EntryTree.h"
#include "platform/LdapDirectory.h"
#include "tests/integration/DirectoryServer.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScrambler.h"
#include "tests/support/Gestures.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace {

/// The browser with a real server.
class BrowseServer : public testing::Test
{
protected:
    [[nodiscard]] QString url(const QString &name, const QString &account = {}) const
    {
        return server.path(name).replace("LDAP://", "LDAP://" + account);
    }

    void open(const QString &object)
    {
        picker.SetItem(object);
        showActive(picker);
        QCoreApplication::processEvents();
    }

    [[nodiscard]] EntryTree &tree() { return *control<EntryTree>(picker, "Tree"); }

    [[nodiscard]] QString selectedNode()
    {
        const QList<QTreeWidgetItem *> selected = tree().selectedItems();
        return selected.isEmpty() ? QString() : selected.first()->text(0);
    }

    DirectoryServer server;
    FakeScrambler scrambler;
    FakeMessages messages;
    const UseMessages use{messages};
    LdapDirectory directory;
    BrowseLDAP picker{directory, scrambler, messages, nullptr};
};

TEST_F(BrowseServer, AnItemIsFoundAndConfirmedAsItWas)
{
    server.start();
    const QString object = url("cn=ann,ou=STAFF,ou=people,dc=example,dc=com") + "?cn,sn?one?(cn=*)";
    open(object);
    EXPECT_EQ(selectedNode(), "cn=Ann");
    press(picker, "OKButton");
    EXPECT_EQ(picker.url(), object);
}

// What a click gives is found again as the item of the next time.
TEST_F(BrowseServer, AnOddNameIsChosenAndFoundAgain)
{
    const QByteArray value = " ,+\"\\<>;#=/?%\xC3\xA9";
    const QByteArray name = "ou=\\ \\,\\+\\\"\\\\\\<\\>\\;#=/?%\xC3\xA9,dc=example,dc=com";
    server.add("dn:: " + name.toBase64() + "\nobjectClass: organizationalUnit\nou:: " + value.toBase64() + "\n");
    server.add("dn:: " + ("cn=below," + name).toBase64() + "\nobjectClass: person\ncn: below\nsn: below\n");
    server.start();
    open(url(""));
    QTreeWidgetItem *context = tree().topLevelItem(0);
    context->setExpanded(true);
    QTreeWidgetItem *odd = nullptr;
    for (int i = 0; i < context->childCount(); ++i) {
        if (context->child(i)->text(0).startsWith("ou=") && context->child(i)->text(0) != "ou=people")
            odd = context->child(i);
    }
    ASSERT_NE(odd, nullptr);
    odd->setExpanded(true);
    ASSERT_EQ(odd->childCount(), 1);
    tree().setCurrentItem(odd->child(0));
    press(picker, "OKButton");
    // In a line other characters would become something else.
    for (const QChar c : picker.url())
        EXPECT_TRUE(c >= u' ' && c <= u'~') << picker.url().toStdString();

    BrowseLDAP again(directory, scrambler, messages, nullptr);
    again.SetItem(picker.url());
    showActive(again);
    QCoreApplication::processEvents();
    const QList<QTreeWidgetItem *> selected = control<EntryTree>(again, "Tree")->selectedItems();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_EQ(selected.first()->text(0), "cn=below");
    press(again, "OKButton");
    EXPECT_EQ(again.url(), picker.url());
}

TEST_F(BrowseServer, AContainerOfTenThousandEntriesIsShownWhole)
{
    server.addMany(10'000);
    server.start();
    open(url("cn=9999,ou=many,dc=example,dc=com"));
    EXPECT_EQ(selectedNode(), "cn=9999");
    EXPECT_EQ(tree().selectedItems().first()->parent()->childCount(), 10'000);
}

TEST_F(BrowseServer, AReachedSizeLimitIsTold)
{
    server.addMany(600);
    server.start();
    messages.expectShow("The server does not give more entries at a time. The server says: \"Size limit exceeded\"",
                        Messages::Icon::Exclamation);
    open(url("ou=many,dc=example,dc=com", "cn=limited,dc=example,dc=com:<terces>@"));
    EXPECT_EQ(selectedNode(), "ou=many");
    EXPECT_EQ(tree().selectedItems().first()->childCount(), 500);
}

TEST_F(BrowseServer, AWrongPasswordIsToldWithItsReason)
{
    server.start();
    messages.expectShow("Could not connect to directory");
    open(url("dc=example,dc=com", "cn=admin,dc=example,dc=com:<gnorw>@"));
    const QString reason = control<QLabel>(picker, "State")->text();
    EXPECT_TRUE(reason.contains("The user name or the password is wrong.")) << reason.toStdString();
    EXPECT_FALSE(reason.contains("wrong>") || reason.contains("gnorw"));
}

TEST_F(BrowseServer, AServerThatEndsWhileTheTreeIsOpenLosesNothing)
{
    server.start();
    open(url("dc=example,dc=com"));
    server.kill();
    QTreeWidgetItem *people = EntryTree::childNamed(*tree().topLevelItem(0), "ou=people");
    ASSERT_NE(people, nullptr);
    messages.expectShow("Connection refused", Messages::Icon::Exclamation);
    people->setExpanded(true);
    EXPECT_TRUE(EntryTree::hasPlaceholder(*people));
    server.start();
    people->setExpanded(true);
    EXPECT_NE(EntryTree::childNamed(*people, "ou=staff"), nullptr);
}

} // namespace
