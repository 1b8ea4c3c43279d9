#include "browse/BrowseUsers.h"

#include "tests/support/FakeAccounts.h"
#include "tests/support/Gestures.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class BrowseUsersTest : public testing::Test
{
protected:
    BrowseUsersTest()
    {
        m_accounts.users = QStringList{"zoe", "adam", "Guest Account"};
        m_accounts.localGroups = QStringList{"Users", "Administrators"};
        m_accounts.globalGroups = QStringList{"Domain Users", "Users"};
    }

    [[nodiscard]] QStringList shownNames() const
    {
        QStringList names;
        for (int row = 0; row < list()->count(); ++row)
            names << list()->item(row)->text();
        return names;
    }

    [[nodiscard]] QListWidget *list() const { return control<QListWidget>(m_picker, "List"); }

    /// Shows the picker as its callers do, and does these steps in it.
    void pick(const std::function<void()> &steps)
    {
        const auto proof = onNextDialog([&](QWidget &dialog) {
            EXPECT_EQ(&dialog, &m_picker);
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            steps();
            EXPECT_FALSE(dialog.isVisible()) << "the steps did not close it";
        });
        m_picker.exec();
        EXPECT_TRUE(proof->handled);
    }

    void doubleClick(const QPoint &position) const
    {
        // Two clicks come before it, as from a mouse.
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, position);
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, position);
    }

    FakeAccounts m_accounts;
    BrowseUsers m_picker{m_accounts, nullptr};
};

TEST_F(BrowseUsersTest, ListsUsersInTheOrderReceived)
{
    m_picker.ShowUsers(QString(), false);
    EXPECT_EQ(m_picker.windowTitle(), "Users");
    EXPECT_EQ(shownNames(), (QStringList{"zoe", "adam", "Guest Account"}));
    EXPECT_EQ(m_picker.Selected(), QString());
}

TEST_F(BrowseUsersTest, ListsLocalGroupsAndBehindThemGlobalOnesWithDuplicates)
{
    m_picker.ShowGroups(QString(), false);
    EXPECT_EQ(m_picker.windowTitle(), "Groups");
    EXPECT_EQ(shownNames(), (QStringList{"Users", "Administrators", "Domain Users", "Users"}));
}

TEST_F(BrowseUsersTest, ARemoteHostStandsInTheTitleOfUsersAndIsAsked)
{
    m_accounts.server = QStringLiteral(R"(\\srv)");
    m_picker.ShowUsers(QStringLiteral("srv"), true);
    EXPECT_EQ(m_picker.windowTitle(), R"(Users (\\srv))");
    EXPECT_EQ(shownNames(), m_accounts.users);
}

TEST_F(BrowseUsersTest, ARemoteHostStandsInTheTitleOfGroupsAndIsAsked)
{
    m_accounts.server = QStringLiteral(R"(\\srv)");
    m_picker.ShowGroups(QStringLiteral("srv"), true);
    EXPECT_EQ(m_picker.windowTitle(), R"(Groups (\\srv))");
    EXPECT_EQ(shownNames(), m_accounts.localGroups + m_accounts.globalGroups);
}

TEST_F(BrowseUsersTest, AHostIsNotAskedWhileTheRemoteSwitchIsOff)
{
    m_picker.ShowUsers(QStringLiteral("srv"), false);
    EXPECT_EQ(m_picker.windowTitle(), "Users");
    EXPECT_EQ(shownNames(), m_accounts.users);
    BrowseUsers groups(m_accounts, nullptr);
    groups.ShowGroups(QStringLiteral("srv"), false);
    EXPECT_EQ(groups.windowTitle(), "Groups");
    for (const FakeAccounts::Call &call : m_accounts.calls)
        EXPECT_EQ(call.server, QString());
}

TEST_F(BrowseUsersTest, TheTitleTakesTheHostAsItIs)
{
    // With places for arguments in it the host must not be filled in again; its "&" is no key.
    m_picker.ShowUsers(QStringLiteral("%1 & %2"), true);
    EXPECT_EQ(m_picker.windowTitle(), R"(Users (\\%1 & %2))");
}

TEST_F(BrowseUsersTest, AnUnreachableHostGivesAnEmptyListWithoutAWord)
{
    m_picker.ShowUsers(QStringLiteral("elsewhere"), true);
    EXPECT_EQ(shownNames(), QStringList());
    pick([&] { press(m_picker, "OKButton"); });
    EXPECT_EQ(m_picker.Selected(), QString());
}

TEST_F(BrowseUsersTest, WhatCouldBeReadIsListed)
{
    m_accounts.users.clear();
    for (int i = 0; i < 100; ++i)
        m_accounts.users << QStringLiteral("user%1").arg(i);
    m_accounts.onAnswer = [](qsizetype call, FakeAccounts::Answer &answer) {
        if (call == 2)
            answer.result = Accounts::AccessDenied;
    };
    m_picker.ShowUsers(QString(), false);
    EXPECT_EQ(shownNames(), m_accounts.users.first(shownNames().size()));
    EXPECT_FALSE(shownNames().isEmpty());
    EXPECT_LT(shownNames().size(), 100);
}

TEST_F(BrowseUsersTest, LocalGroupsThatCannotBeReadDoNotHideGlobalOnes)
{
    m_accounts.onAnswer = [](qsizetype call, FakeAccounts::Answer &answer) {
        if (call == 0)
            answer.result = Accounts::AccessDenied;
    };
    m_picker.ShowGroups(QString(), false);
    EXPECT_EQ(shownNames(), m_accounts.globalGroups);
}

TEST_F(BrowseUsersTest, OKTakesWhatIsSelected)
{
    m_picker.ShowUsers(QString(), false);
    pick([&] {
        clickRow(*list(), 2);
        clickRow(*list(), 1);
        press(m_picker, "OKButton");
    });
    EXPECT_EQ(m_picker.Selected(), "adam");
    EXPECT_EQ(m_picker.result(), QDialog::Accepted);
}

TEST_F(BrowseUsersTest, OKWithNothingSelectedTakesNothing)
{
    // The first entry is not taken for selected only because the list has the focus.
    m_picker.ShowUsers(QString(), false);
    pick([&] {
        list()->setFocus();
        press(m_picker, "OKButton");
    });
    EXPECT_EQ(m_picker.Selected(), QString());
}

TEST_F(BrowseUsersTest, OKWithNothingSelectedKeepsWhatWasTakenBefore)
{
    m_picker.ShowUsers(QString(), false);
    pick([&] {
        clickRow(*list(), 1);
        press(m_picker, "OKButton");
    });
    pick([&] {
        list()->clearSelection();
        press(m_picker, "OKButton");
    });
    EXPECT_EQ(m_picker.Selected(), "adam");
}

TEST_F(BrowseUsersTest, ADoubleClickOnAnEntryTakesIt)
{
    m_picker.ShowUsers(QString(), false);
    pick([&] { doubleClick(list()->visualItemRect(list()->item(2)).center()); });
    EXPECT_EQ(m_picker.Selected(), "Guest Account");
}

TEST_F(BrowseUsersTest, ADoubleClickBelowTheEntriesDoesNothing)
{
    m_picker.ShowUsers(QString(), false);
    pick([&] {
        clickRow(*list(), 1);
        doubleClick(list()->viewport()->rect().bottomLeft() + QPoint(5, -5));
        EXPECT_TRUE(m_picker.isVisible());
        press(m_picker, "CancelButton");
    });
    EXPECT_EQ(m_picker.Selected(), QString());
}

TEST_F(BrowseUsersTest, TheSecondOfTwoEntriesOfOneNameCanBeTaken)
{
    m_picker.ShowGroups(QString(), false);
    pick([&] {
        clickRow(*list(), 3);
        press(m_picker, "OKButton");
    });
    EXPECT_EQ(m_picker.Selected(), "Users");
}

TEST_F(BrowseUsersTest, CancelReturnsAnEmptyNameHoweverItIsDone)
{
    for (const std::function<void()> &cancel : {
             std::function<void()>([&] { press(m_picker, "CancelButton"); }),
             std::function<void()>([&] { key(m_picker, Qt::Key_Escape); }),
             std::function<void()>([&] { m_picker.close(); }),
         }) {
        m_picker.ShowUsers(QString(), false);
        pick([&] {
            clickRow(*list(), 1);
            cancel();
        });
        EXPECT_EQ(m_picker.Selected(), QString());
        EXPECT_EQ(m_picker.result(), QDialog::Rejected);
    }
}

TEST_F(BrowseUsersTest, CanBeUsedByKeyboardAlone)
{
    m_picker.ShowUsers(QString(), false);
    pick([&] {
        EXPECT_TRUE(list()->hasFocus());
        key(m_picker, Qt::Key_Down);
        // The first press selects the first entry; otherwise it could only be reached by way of another.
        EXPECT_TRUE(list()->item(0)->isSelected());
        key(m_picker, Qt::Key_Down);
        key(m_picker, Qt::Key_Return);
    });
    EXPECT_EQ(m_picker.Selected(), "adam");
}

TEST_F(BrowseUsersTest, TypingTheBeginOfANameFindsIt)
{
    m_picker.ShowUsers(QString(), false);
    pick([&] {
        key(m_picker, Qt::Key_G);
        key(m_picker, Qt::Key_Enter);
    });
    EXPECT_EQ(m_picker.Selected(), "Guest Account");
}

TEST_F(BrowseUsersTest, TheTabKeyGoesFromTheListToOKToCancel)
{
    m_picker.ShowUsers(QString(), false);
    pick([&] {
        QStringList names;
        for (int i = 0; i < 4; ++i) {
            names << m_picker.focusWidget()->objectName();
            key(m_picker, Qt::Key_Tab);
        }
        EXPECT_EQ(names, (QStringList{"List", "OKButton", "CancelButton", "List"}));
        m_picker.close();
    });
}

TEST_F(BrowseUsersTest, AByteThatIsNoTextIsShownReadablyAndTakenAsItIs)
{
    const QString carried = QStringLiteral("old") + QChar(0xDCFC);
    m_accounts.users = QStringList{carried};
    m_picker.ShowUsers(QString(), false);
    EXPECT_EQ(shownNames(), QStringList{QString::fromUtf16(u"old\u00fc")});
    pick([&] {
        clickRow(*list(), 0);
        press(m_picker, "OKButton");
    });
    EXPECT_EQ(m_picker.Selected(), carried);
}

TEST_F(BrowseUsersTest, ListsThousandsOfNames)
{
    m_accounts.users.clear();
    for (int i = 0; i < 10'000; ++i)
        m_accounts.users << QStringLiteral("user%1").arg(i);
    m_picker.ShowUsers(QString(), false);
    EXPECT_EQ(list()->count(), 10'000);
    pick([&] {
        key(m_picker, Qt::Key_End);
        key(m_picker, Qt::Key_Return);
    });
    EXPECT_EQ(m_picker.Selected(), "user9999");
}

TEST_F(BrowseUsersTest, HasTheTextsAndNamesThatItShouldHave)
{
    m_picker.ShowGroups(QString(), false);
    EXPECT_EQ(m_picker.objectName(), "BrowseUsers");
    EXPECT_EQ(control<QPushButton>(m_picker, "OKButton")->text(), "OK");
    EXPECT_EQ(control<QPushButton>(m_picker, "CancelButton")->text(), "Cancel");
    EXPECT_EQ(list()->accessibleName(), "Groups");
    EXPECT_TRUE(m_picker.isModal());
}

} // namespace
