#include "settings/frmODBCLogon.h"

#include "tests/support/FakeDataSources.h"
#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <memory>

namespace {

const QStringList fields{"ODBCdsn", "ODBCuser", "ODBCdb", "ODBCdriver", "ODBCserver"};

class LogonPage : public testing::Test
{
protected:
    void open(const OdbcConnection &shown = {})
    {
        page = std::make_unique<frmODBCLogon>(sources);
        page->setConnection(shown);
        showActive(*page);
    }

    [[nodiscard]] QComboBox &list() const { return *control<QComboBox>(*page, "ODBCdsn"); }
    [[nodiscard]] QPushButton &button() const { return *control<QPushButton>(*page, "ODBCButton"); }

    [[nodiscard]] QStringList listed() const
    {
        QStringList result;
        for (int i = 0; i < list().count(); ++i)
            result << list().itemText(i);
        return result;
    }

    /// The fields and labels that are enabled.
    [[nodiscard]] QStringList enabled() const
    {
        QStringList result;
        for (const QString &field : fields) {
            for (const QString &name : {"lbl" + field, field}) {
                if (page->findChild<QWidget *>(name)->isEnabled())
                    result << name;
            }
        }
        return result;
    }

    FakeDataSources sources;
    std::unique_ptr<frmODBCLogon> page;
    const OdbcConnection connection{"events", "user", "db", "driver", "server"};
};

TEST_F(LogonPage, ListsTheDataSourcesOfTheMachine)
{
    sources.names = {"zulu", "alpha"};
    open();
    EXPECT_EQ(listed(), (QStringList{"zulu", "alpha"}));
    EXPECT_FALSE(control<QLabel>(*page, "lblNotice")->isVisible());
}

TEST_F(LogonPage, TheOpenedListIsAsWideAsItsWidestName)
{
    sources.names = {QByteArray(200, 'n'), "short"};
    open();
    EXPECT_EQ(list().view()->minimumWidth(), list().fontMetrics().horizontalAdvance(QString(200, 'n')) + 30);
}

TEST_F(LogonPage, SaysWhenTheDataSourcesCannotBeListed)
{
    sources.isWorking = false;
    open(connection);
    EXPECT_TRUE(control<QLabel>(*page, "lblNotice")->isVisible());
    EXPECT_EQ(listed(), QStringList());
    // A name can be given all the same.
    EXPECT_EQ(list().currentText(), "events");
    EXPECT_TRUE(list().isEditable());
}

TEST_F(LogonPage, ShowsTheConnectionAndGivesItBack)
{
    sources.names = {"alpha"};
    open(connection);
    EXPECT_TRUE(button().isChecked());
    EXPECT_EQ(list().currentText(), "events");
    EXPECT_EQ(control<QLineEdit>(*page, "ODBCuser")->text(), "user");
    EXPECT_EQ(control<QLineEdit>(*page, "ODBCdb")->text(), "db");
    EXPECT_EQ(control<QLineEdit>(*page, "ODBCdriver")->text(), "driver");
    EXPECT_EQ(control<QLineEdit>(*page, "ODBCserver")->text(), "server");
    EXPECT_EQ(enabled().size(), 10);
    EXPECT_EQ(page->connection(), connection);
}

TEST_F(LogonPage, AChosenSourceFillsTheDataSourceFieldAndNoOther)
{
    sources.names = {"alpha", "bravo"};
    open(connection);
    list().setFocus();
    list().showPopup();
    QTest::keyClick(list().view(), Qt::Key_Home);
    QTest::keyClick(list().view(), Qt::Key_Down);
    QTest::keyClick(list().view(), Qt::Key_Return);
    EXPECT_EQ(page->connection(), (OdbcConnection{"bravo", "user", "db", "driver", "server"}));
}

TEST_F(LogonPage, ANameThatIsNotListedCanBeTyped)
{
    sources.names = {"alphabet"};
    open(connection);
    list().setFocus();
    list().lineEdit()->selectAll();
    // Completed to the listed name, it would be another source.
    QTest::keyClicks(list().lineEdit(), "alpha");
    key(*page, Qt::Key_Tab);
    EXPECT_EQ(page->connection().dsn, "alpha");
    EXPECT_EQ(listed(), QStringList{"alphabet"});
}

TEST_F(LogonPage, SwitchedOffItDisablesFieldsAndLabelsAndShowsEmpty)
{
    open(connection);
    press(*page, "ODBCButton");
    EXPECT_EQ(enabled(), QStringList());
    EXPECT_EQ(list().currentText(), "empty");
    EXPECT_EQ(page->connection(), (OdbcConnection{"", "user", "db", "driver", "server"}));
}

TEST_F(LogonPage, SwitchedOnAgainItShowsWhatItHad)
{
    open(connection);
    list().setEditText("typed");
    press(*page, "ODBCButton");
    press(*page, "ODBCButton");
    EXPECT_EQ(enabled().size(), 10);
    EXPECT_EQ(list().currentText(), "typed");
    EXPECT_EQ(page->connection().dsn, "typed");
}

TEST_F(LogonPage, WithoutADataSourceItIsSwitchedOff)
{
    open({"", "user", "db", "driver", "server"});
    EXPECT_FALSE(button().isChecked());
    EXPECT_EQ(enabled(), QStringList());
    EXPECT_EQ(list().currentText(), "empty");
    EXPECT_EQ(page->connection(), (OdbcConnection{"", "user", "db", "driver", "server"}));
    press(*page, "ODBCButton");
    EXPECT_EQ(list().currentText(), "");
    EXPECT_EQ(enabled().size(), 10);
}

TEST_F(LogonPage, ADataSourceOfTheNameEmptyIsOne)
{
    open({"empty", "", "", "", ""});
    EXPECT_TRUE(button().isChecked());
    EXPECT_EQ(page->connection().dsn, "empty");
}

} // namespace
