#include "tests/browse/BrowseLDAPFixture.h"

#include <QComboBox>
#include <QRadioButton>

/// From the URL that the picker begins with to the one that comes of it.

namespace {

const QString noContexts = "Could not find any valid naming contexts to connect to.";

// The starting point

TEST_F(BrowseLDAPTest, TheStartFillsTheFields)
{
    open("ldap://cn=admin:<terces>@localhost/o=Second?o?one?(o=*)");
    EXPECT_EQ(textOf("Host"), "localhost");
    EXPECT_EQ(textOf("UserName"), "cn=admin");
    EXPECT_EQ(textOf("Password"), "secret");
    EXPECT_EQ(textOf("Filter"), "(o=*)");
    EXPECT_EQ(control<QComboBox>(*picker, "Scope")->currentIndex(), 2);
    EXPECT_EQ(directory.calls[0].password, "secret");
    EXPECT_EQ(selectedNode(), "o=Second");
}

TEST_F(BrowseLDAPTest, AnUnknownScopeIsToldAndBecomesSub)
{
    messages.expectShow("Unknow scope subtree. Using SUB.");
    open("LDAP://localhost/o=Second??subtree?(o=*)");
    EXPECT_EQ(control<QComboBox>(*picker, "Scope")->currentIndex(), 0);
}

TEST_F(BrowseLDAPTest, BlanksAroundAttributesDoNotCount)
{
    open("LDAP://localhost/o=Second?cn , mail?sub");
    EXPECT_EQ(selectedProperties(), (QStringList{"cn", "mail"}));
    EXPECT_EQ(propertyNames(), (QStringList{"cn", "mail"}));
    EXPECT_TRUE(control<QRadioButton>(*picker, "PropSel_1")->isChecked());
    EXPECT_TRUE(properties().isEnabled());
}

TEST_F(BrowseLDAPTest, TheTreeIsOpenedDownToTheEntry)
{
    open("LDAP://localhost/CN=ann,OU=People,dc=example,dc=com??base");
    EXPECT_EQ(selectedNode(), "cn=Ann");
    EXPECT_TRUE(node({"dc=example,dc=com", "ou=people"}).isExpanded());
    EXPECT_TRUE(tree().viewport()->rect().intersects(tree().visualItemRect(tree().selectedItems().first())));
}

TEST_F(BrowseLDAPTest, ANameWithACommaIsFoundHoweverItIsEscaped)
{
    for (const char *name : {"cn=Smith\\, John", "cn=Smith\\2C John", "cn=\"Smith, John\""}) {
        open(QStringLiteral("LDAP://localhost/%1,ou=people,dc=example,dc=com").arg(name));
        EXPECT_EQ(selectedNode(), "cn=Smith\\, John") << name;
    }
}

TEST_F(BrowseLDAPTest, AnEntryThatIsNotFoundLeavesTheDeepestNodeSelected)
{
    messages.expectShow(
        "Could not find DN 'cn=x,cn=Nobody,ou=people,dc=example,dc=com'. Displaying last item in tree.");
    open("LDAP://localhost/cn=x,cn=Nobody,ou=people,dc=example,dc=com??sub?(a=b)");
    EXPECT_EQ(selectedNode(), "ou=people");
    // What the item says is not lost.
    EXPECT_EQ(confirmed(), "LDAP://localhost/cn=x,cn=Nobody,ou=people,dc=example,dc=com??sub?(a=b)");
}

TEST_F(BrowseLDAPTest, AServerThatDoesNotAnswerEndsTheStart)
{
    messages.expectShow(notConnected);
    open("LDAP://elsewhere/dc=x?cn?one?(a=b)");
    // What the item says is not lost.
    EXPECT_EQ(confirmed(), "LDAP://elsewhere/dc=x?cn?one?(a=b)");
}

TEST_F(BrowseLDAPTest, OfTwoContextsTheInnermostHoldsTheEntry)
{
    directory.contexts << "ou=people,dc=example,dc=com";
    open("LDAP://localhost/cn=Ann,ou=people,dc=example,dc=com");
    EXPECT_EQ(selectedNode(), "cn=Ann");
    EXPECT_FALSE(node({"dc=example,dc=com"}).isExpanded());
}

// Level by level

TEST_F(BrowseLDAPTest, AStartInNoContextIsAttachedAtTheFirstLevelThatOpens)
{
    directory.contexts = QStringList{"o=Second"};
    messages.expectShow(noContexts);
    // The bare "dc=com" is not tried.
    open("LDAP://localhost/cn=Ann,ou=people,dc=example,dc=com");
    EXPECT_EQ(roots(), (QStringList{"o=Second", "dc=example,dc=com"}));
    EXPECT_EQ(selectedNode(), "cn=Ann");
    EXPECT_FALSE(directory.paths().contains("LDAP://localhost/dc=com"));
}

TEST_F(BrowseLDAPTest, YesGoesOnWithTheNextLevel)
{
    directory.contexts = QStringList{"o=Second"};
    directory.entries.remove("dc=example,dc=com");
    messages.expectShow(noContexts);
    messages.expectAsk("Unable to connect at dc=example,dc=com. Do you want to try to open the next level? ",
                       Messages::Buttons::YesNo, Messages::Answer::Yes);
    open("LDAP://localhost/cn=Ann,ou=people,dc=example,dc=com");
    EXPECT_EQ(roots(), (QStringList{"o=Second", "ou=people,dc=example,dc=com"}));
    EXPECT_EQ(selectedNode(), "cn=Ann");
}

TEST_F(BrowseLDAPTest, NoEndsTheAttempt)
{
    directory.contexts = QStringList{"o=Second"};
    directory.entries.remove("dc=example,dc=com");
    messages.expectShow(noContexts);
    messages.expectAsk("Unable to connect at dc=example,dc=com. Do you want to try to open the next level? ",
                       Messages::Buttons::YesNo, Messages::Answer::No);
    open("LDAP://localhost/cn=Ann,ou=people,dc=example,dc=com");
    EXPECT_EQ(roots(), QStringList{"o=Second"});
    EXPECT_EQ(directory.paths().last(), "LDAP://localhost/dc=example,dc=com");
}

// The result

TEST_F(BrowseLDAPTest, ATypicalResult)
{
    open("LDAP://localhost/");
    click(node({"dc=example,dc=com"}));
    EXPECT_EQ(confirmed(), "LDAP://localhost/dc=example,dc=com??sub?(objectclass=*)");
}

TEST_F(BrowseLDAPTest, SelectedPropertiesAreNamedInTheOrderOfTheList)
{
    open("LDAP://localhost/ou=people,dc=example,dc=com");
    node({"dc=example,dc=com", "ou=people"}).setExpanded(true);
    click(node({"dc=example,dc=com", "ou=people", "cn=Ann"}));
    press(*picker, "PropSel_1");
    clickRow(properties(), 3);
    clickRow(properties(), 1);
    EXPECT_EQ(confirmed(), "LDAP://localhost/cn=Ann,ou=people,dc=example,dc=com?cn,mail?sub?(objectclass=*)");
}

TEST_F(BrowseLDAPTest, NoSelectedPropertyIsAnEmptyList)
{
    open("LDAP://localhost/");
    click(node({"o=Second"}));
    press(*picker, "PropSel_1");
    control<QComboBox>(*picker, "Scope")->setCurrentIndex(1);
    enter("Filter", "");
    EXPECT_EQ(confirmed(), "LDAP://localhost/o=Second??base");
}

TEST_F(BrowseLDAPTest, ThePasswordOfAResultIsScrambled)
{
    open("LDAP://localhost/");
    click(node({"o=Second"}));
    enter("UserName", "cn=admin");
    enter("Password", "secret");
    EXPECT_EQ(confirmed(), "LDAP://cn=admin:<terces>@localhost/o=Second??sub?(objectclass=*)");
}

TEST_F(BrowseLDAPTest, WithoutAUserNameThereIsNoAccount)
{
    open();
    enter("Object", "LDAP://localhost/o=Second");
    enter("Password", "secret");
    EXPECT_EQ(confirmed(), "LDAP://localhost/o=Second??sub?(objectclass=*)");
}

TEST_F(BrowseLDAPTest, AFailedScramblingIsToldAndLeavesThePasswordOut)
{
    scrambler.isMissing = true;
    open();
    enter("Object", "LDAP://localhost/o=Second");
    enter("UserName", "cn=admin");
    enter("Password", "secret");
    messages.expectShow("Problem scrambling password. Zentil may not have been properly installed. ");
    EXPECT_EQ(confirmed(), "LDAP://cn=admin@localhost/o=Second??sub?(objectclass=*)");
}

/// An item whose password cannot be read.
class UnreadPassword : public BrowseLDAPTest
{
protected:
    void SetUp() override
    {
        scrambler.isMissing = true;
        directory.password.clear();
        messages.expectShow("Problem unscrambling password. Zentil may not have been properly installed. ");
        open("LDAP://cn=admin:<terces>@localhost/o=Second");
    }
};

TEST_F(UnreadPassword, IsToldAndLeavesTheFieldEmpty)
{
    EXPECT_EQ(textOf("Password"), "");
    EXPECT_EQ(textOf("UserName"), "cn=admin");
}

TEST_F(UnreadPassword, IsWrittenAgainAsItStood)
{
    EXPECT_EQ(confirmed(), "LDAP://cn=admin:<terces>@localhost/o=Second??sub?(objectclass=*)");
}

TEST_F(UnreadPassword, GivesWayToOneThatIsTyped)
{
    scrambler.isMissing = false;
    QTest::keyClicks(control<QLineEdit>(*picker, "Password"), "new");
    EXPECT_EQ(confirmed(), "LDAP://cn=admin:<wen>@localhost/o=Second??sub?(objectclass=*)");
}

TEST_F(UnreadPassword, CanBeTakenAway)
{
    auto *field = control<QLineEdit>(*picker, "Password");
    QTest::keyClicks(field, "x");
    QTest::keyClick(field, Qt::Key_Backspace);
    EXPECT_EQ(confirmed(), "LDAP://cn=admin@localhost/o=Second??sub?(objectclass=*)");
}

TEST_F(UnreadPassword, IsNotThatOfAnotherUser)
{
    enter("UserName", "cn=other");
    EXPECT_EQ(confirmed(), "LDAP://cn=other@localhost/o=Second??sub?(objectclass=*)");
}

TEST_F(BrowseLDAPTest, AnAccountWithoutAPasswordNeedsNoLibrary)
{
    scrambler.isMissing = true;
    directory.password.clear();
    open("LDAP://cn=admin@localhost/o=Second");
    EXPECT_EQ(confirmed(), "LDAP://cn=admin@localhost/o=Second??sub?(objectclass=*)");
}

// Looking changes nothing, whatever the item says.
TEST_F(BrowseLDAPTest, ConfirmingWithoutAChangeGivesTheSameUrl)
{
    for (const char *url : {"LDAP://localhost/dc=example,dc=com??sub?(objectclass=*)",
                            "LDAP://localhost/cn=Ann,ou=people,dc=example,dc=com?cn,mail?base?(a=b)",
                            "LDAP://cn=admin:<terces>@localhost/o=Second??one",
                            "LDAP://localhost/cn=Smith\\2C John,OU=people,dc=example,dc=com??sub?(a=?)"}) {
        open(url);
        EXPECT_EQ(confirmed(), url);
    }
}

} // namespace
