#include "tests/browse/BrowseLDAPFixture.h"
#include "tests/support/FormStructure.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace {

// The window

TEST_F(BrowseLDAPTest, HasItsTextsWithTheirSpelling)
{
    open();
    EXPECT_EQ(picker->windowTitle(), "Browse Directory Service");
    EXPECT_EQ(control<QLineEdit>(*picker, "Host")->toolTip(), "Name of server or IP address or blank to use default");
    EXPECT_EQ(control<QLineEdit>(*picker, "UserName")->toolTip(), "Username in LDAP-standard for or leave blank");
    EXPECT_EQ(control<QPushButton>(*picker, "Command1")->text(), "Connect");
    const auto *scope = control<QComboBox>(*picker, "Scope");
    ASSERT_EQ(scope->count(), 3);
    EXPECT_EQ(scope->itemText(0), "sub: full subtree search");
    EXPECT_EQ(scope->itemText(1), "base: base object only");
    EXPECT_EQ(scope->itemText(2), "one: one level tree seach");
    EXPECT_EQ(control<QGroupBox>(*picker, "Frame1")->title(), "Properites to monitor");
    EXPECT_EQ(control<QRadioButton>(*picker, "PropSel_0")->text(), "All Poperties");
    EXPECT_EQ(control<QRadioButton>(*picker, "PropSel_1")->text(), "Selected");
}

TEST_F(BrowseLDAPTest, StartsWithItsDefaults)
{
    open();
    for (const char *field : {"Host", "UserName", "Password", "Object"})
        EXPECT_EQ(textOf(field), "") << field;
    EXPECT_EQ(textOf("Filter"), "(objectclass=*)");
    EXPECT_EQ(control<QComboBox>(*picker, "Scope")->currentIndex(), 0);
    EXPECT_TRUE(control<QRadioButton>(*picker, "PropSel_0")->isChecked());
    EXPECT_FALSE(properties().isEnabled());
    EXPECT_EQ(control<QLineEdit>(*picker, "Password")->echoMode(), QLineEdit::Password);
}

TEST_F(BrowseLDAPTest, ThePropertiesCanBeSelectedOnceSelectedIsChosen)
{
    open();
    press(*picker, "PropSel_1");
    EXPECT_TRUE(properties().isEnabled());
    press(*picker, "PropSel_0");
    EXPECT_FALSE(properties().isEnabled());
}

TEST_F(BrowseLDAPTest, EveryControlIsNamedLabelledAndReachedByTab)
{
    open();
    EXPECT_EQ(picker->focusWidget()->objectName(), "Host");
    expectNamedAndLabelled(*picker);
    EXPECT_EQ(sharedMnemonics(mnemonicTexts(*picker)), QStringList());
    press(*picker, "PropSel_1");
    control<QLineEdit>(*picker, "Host")->setFocus();
    const QStringList round = tabRound(*picker);
    EXPECT_EQ(round, (QStringList{"Host", "UserName", "Password", "Command1", "Tree", "Object", "Scope", "Filter",
                                  "PropSel_1", "Prop", "OKButton", "CancelButton"}));
}

TEST_F(BrowseLDAPTest, CancelClosesWithoutAResult)
{
    open();
    enter("Object", "LDAP://localhost/dc=x");
    press(*picker, "CancelButton");
    EXPECT_FALSE(picker->isVisible());
    EXPECT_EQ(picker->result(), QDialog::Rejected);
    EXPECT_EQ(picker->url(), "");
}

// Connecting

TEST_F(BrowseLDAPTest, AStartWithoutLdapOpensWithDefaultsAndAnEmptyHostThatBecomesLocalhost)
{
    open("LDAP:cn=x,dc=example");
    EXPECT_EQ(textOf("Host"), "");
    EXPECT_EQ(textOf("Object"), "");
    EXPECT_TRUE(directory.calls.isEmpty());
    press(*picker, "Command1");
    EXPECT_EQ(textOf("Host"), "localhost");
    EXPECT_EQ(directory.paths(), QStringList{"LDAP://localhost/RootDSE"});
    EXPECT_EQ(roots(), (QStringList{"dc=example,dc=com", "o=Second"}));
}

TEST_F(BrowseLDAPTest, EveryContextHasAPlaceholder)
{
    open();
    press(*picker, "Command1");
    const QTreeWidgetItem &root = node({"dc=example,dc=com"});
    EXPECT_EQ(EntryTree::keyOf(root), "LDAP://localhost/dc=example,dc=com");
    ASSERT_EQ(root.childCount(), 1);
    EXPECT_EQ(EntryTree::keyOf(*root.child(0)), "LDAP://localhost/dc=example,dc=com::JUNK");
}

TEST_F(BrowseLDAPTest, ConnectsWithTheAccountThatIsGiven)
{
    open();
    enter("UserName", "cn=admin");
    enter("Password", "secret");
    press(*picker, "Command1");
    ASSERT_EQ(directory.calls.size(), 1);
    EXPECT_EQ(directory.calls[0].userName, "cn=admin");
    EXPECT_EQ(directory.calls[0].password, "secret");
    EXPECT_EQ(roots().size(), 2);
}

TEST_F(BrowseLDAPTest, AFailedConnectionIsToldAndTheReasonStands)
{
    open();
    press(*picker, "Command1");
    enter("Host", "elsewhere");
    messages.expectShow(notConnected);
    press(*picker, "Command1");
    EXPECT_EQ(roots(), QStringList());
    EXPECT_EQ(control<QLabel>(*picker, "State")->text(), FakeDirectory::failure);
    EXPECT_TRUE(picker->isVisible());
}

TEST_F(BrowseLDAPTest, AServerWithoutContextsIsSaidToShowNone)
{
    directory.contexts.clear();
    open();
    messages.expectShow(
        "Connection successful, but no items returned. Perhaps you don't have authorization to view the "
        "schema. Try using a different user and password.");
    press(*picker, "Command1");
    EXPECT_EQ(roots(), QStringList());
}

TEST_F(BrowseLDAPTest, APasswordIsSentUnencryptedOnlyWhenTheUserSaysSo)
{
    directory.isUnencrypted = true;
    open();
    enter("UserName", "cn=admin");
    enter("Password", "secret");
    const QString question =
        "\"localhost\" does not encrypt the connection. Do you want to send the password unencrypted?";
    messages.expectAsk(question, Messages::Buttons::YesOrElseNo, Messages::Answer::No);
    messages.expectShow(notConnected);
    press(*picker, "Command1");
    EXPECT_EQ(roots(), QStringList());

    messages.expectAsk(question, Messages::Buttons::YesOrElseNo, Messages::Answer::Yes);
    press(*picker, "Command1");
    EXPECT_EQ(roots().size(), 2);
    // Not asked again by everything that is read there, but for another password.
    node({"dc=example,dc=com"}).setExpanded(true);
    EXPECT_EQ(directory.calls.last().flags, Directory::MaySendUnencrypted);
    enter("Password", "other");
    messages.expectAsk(question, Messages::Buttons::YesOrElseNo, Messages::Answer::No);
    messages.expectShow(notConnected);
    press(*picker, "Command1");
}

// A node of the tree may be of the server before.
TEST_F(BrowseLDAPTest, WhatIsAllowedForOneServerIsNotForAnother)
{
    directory.isUnencrypted = true;
    open();
    press(*picker, "Command1");
    enter("Host", "elsewhere");
    enter("UserName", "cn=admin");
    enter("Password", "secret");
    messages.expectAsk("\"localhost\" does not encrypt the connection. Do you want to send the password unencrypted?",
                       Messages::Buttons::YesOrElseNo, Messages::Answer::Yes);
    node({"dc=example,dc=com"}).setExpanded(true);
    EXPECT_EQ(directory.calls.last().flags, Directory::MaySendUnencrypted);

    messages.expectShow(notConnected);
    press(*picker, "Command1");
    EXPECT_EQ(directory.calls.last().path, "LDAP://elsewhere/RootDSE");
    EXPECT_EQ(directory.calls.last().flags, Directory::None);
}

// Waiting

TEST_F(BrowseLDAPTest, WaitingIsSaidAndCancelEndsItOnly)
{
    open();
    enter("Host", "localhost");
    control<QLineEdit>(*picker, "Host")->setFocus();
    int asked = 0;
    directory.stillWaits = [&](qsizetype) {
        if (++asked == 1)
            return true;
        EXPECT_TRUE(control<QLabel>(*picker, "State")->text().contains("Waiting for \"localhost\""));
        for (const char *name : {"Host", "Command1", "Tree", "Object", "OKButton"})
            EXPECT_FALSE(control<QWidget>(*picker, name)->isEnabled()) << name;
        if (asked == 2)
            press(*picker, "CancelButton");
        return asked < 1000;
    };
    press(*picker, "Command1");
    EXPECT_LT(asked, 1000);
    EXPECT_TRUE(picker->isVisible());
    EXPECT_EQ(roots(), QStringList());
    EXPECT_TRUE(control<QWidget>(*picker, "OKButton")->isEnabled());
    EXPECT_EQ(picker->focusWidget()->objectName(), "Command1");

    directory.stillWaits = nullptr;
    press(*picker, "Command1");
    EXPECT_EQ(roots().size(), 2);
    EXPECT_EQ(control<QLabel>(*picker, "State")->text(), "");
}

TEST_F(BrowseLDAPTest, ANodeWhoseReadingIsCancelledCanBeReadAgain)
{
    open("LDAP://localhost/");
    QTreeWidgetItem &root = node({"dc=example,dc=com"});
    directory.stillWaits = [&](qsizetype) {
        picker->reject();
        return true;
    };
    root.setExpanded(true);
    EXPECT_TRUE(EntryTree::hasPlaceholder(root));
    EXPECT_FALSE(root.isExpanded());
    directory.stillWaits = nullptr;
    root.setExpanded(true);
    EXPECT_EQ(childrenOf(root), QStringList{"ou=people"});
}

// The tree

TEST_F(BrowseLDAPTest, ExpandingReadsOneLevel)
{
    open("LDAP://localhost/");
    QTreeWidgetItem &root = node({"dc=example,dc=com"});
    root.setExpanded(true);
    EXPECT_EQ(childrenOf(root), QStringList{"ou=people"});
    QTreeWidgetItem &people = *root.child(0);
    EXPECT_EQ(EntryTree::keyOf(people), "LDAP://localhost/ou=people,dc=example,dc=com");
    EXPECT_TRUE(EntryTree::hasPlaceholder(people));
    people.setExpanded(true);
    EXPECT_EQ(childrenOf(people), (QStringList{"cn=Ann", "cn=Smith\\, John"}));
    // An entry without children has none then.
    people.child(0)->setExpanded(true);
    EXPECT_EQ(people.child(0)->childCount(), 0);
    // Nothing is read twice.
    const qsizetype calls = directory.calls.size();
    people.setExpanded(false);
    people.setExpanded(true);
    EXPECT_EQ(directory.calls.size(), calls);
}

TEST_F(BrowseLDAPTest, ANodeThatCannotBeReadIsToldAndCanBeTriedAgain)
{
    open("LDAP://localhost/");
    QTreeWidgetItem &root = node({"dc=example,dc=com"});
    directory.entries["dc=example,dc=com"].childrenStatus = {DirectoryStatus::Code::Failed, "No more."};
    messages.expectShow("No more.", Messages::Icon::Exclamation);
    root.setExpanded(true);
    EXPECT_TRUE(EntryTree::hasPlaceholder(root));
    EXPECT_EQ(root.childCount(), 1);
    directory.entries["dc=example,dc=com"].childrenStatus = {};
    root.setExpanded(true);
    EXPECT_EQ(childrenOf(root), QStringList{"ou=people"});
}

TEST_F(BrowseLDAPTest, AReachedLimitIsToldAndWhatCameIsShown)
{
    open("LDAP://localhost/");
    directory.entries["ou=people,dc=example,dc=com"].childrenStatus = {DirectoryStatus::Code::Incomplete, "Too many."};
    node({"dc=example,dc=com"}).setExpanded(true);
    messages.expectShow("Too many.", Messages::Icon::Exclamation);
    QTreeWidgetItem &people = node({"dc=example,dc=com", "ou=people"});
    people.setExpanded(true);
    EXPECT_EQ(people.childCount(), 2);
    EXPECT_TRUE(people.isExpanded());
}

TEST_F(BrowseLDAPTest, ClickingANodeShowsItsPathAndItsProperties)
{
    open("LDAP://localhost/");
    click(node({"dc=example,dc=com"}));
    EXPECT_EQ(textOf("Object"), "LDAP://localhost/dc=example,dc=com");
    EXPECT_EQ(propertyNames(), (QStringList{"objectClass", "dc"}));
    // Opened once, though the click selects too.
    EXPECT_EQ(directory.paths().count("LDAP://localhost/dc=example,dc=com"), 1);
    click(node({"o=Second"}));
    EXPECT_EQ(textOf("Object"), "LDAP://localhost/o=Second");
    EXPECT_EQ(propertyNames(), (QStringList{"objectClass", "o"}));
}

TEST_F(BrowseLDAPTest, TheArrowKeysShowANodeToo)
{
    open("LDAP://localhost/");
    tree().setFocus();
    key(*picker, Qt::Key_Home);
    key(*picker, Qt::Key_Down);
    EXPECT_EQ(textOf("Object"), "LDAP://localhost/o=Second");
}

TEST_F(BrowseLDAPTest, AnEntryThatCannotBeOpenedHasNoProperties)
{
    open("LDAP://localhost/");
    click(node({"o=Second"}));
    directory.entries.remove("dc=example,dc=com");
    click(node({"dc=example,dc=com"}));
    EXPECT_EQ(textOf("Object"), "LDAP://localhost/dc=example,dc=com");
    EXPECT_EQ(propertyNames(), QStringList());
    EXPECT_EQ(control<QLabel>(*picker, "State")->text(), FakeDirectory::failure);
}

// The password must not be sent to a server that only another server has named.
TEST_F(BrowseLDAPTest, AnEntryOnAnotherServerIsShownAndNotOpened)
{
    directory.entries["o=Second"].elsewhere["ou=away"] = "LDAP://other/ou=away";
    open("LDAP://localhost/");
    node({"o=Second"}).setExpanded(true);
    QTreeWidgetItem &away = node({"o=Second", "ou=away"});
    EXPECT_EQ(away.childCount(), 0);
    const qsizetype calls = directory.calls.size();
    click(away);
    EXPECT_EQ(textOf("Object"), "LDAP://other/ou=away");
    EXPECT_EQ(directory.calls.size(), calls);
}

} // namespace
