#include "settings/frmOptions.h"

#include "platform/RuntimeError.h"
#include "settings/Config.h"
#include "tests/support/FakeDataSources.h"
#include "tests/support/FakePrograms.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/FormStructure.h"
#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <memory>

namespace {

const QByteArray applicationPath = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software\\ZentilAdmin";

/// A window that does something at intervals.
class TimedWindow final : public QWidget
{
    Q_OBJECT

public:
    int updates = 0;

public slots:
    void UpdateTimer() { ++updates; }
};

class Options : public testing::Test
{
protected:
    void open()
    {
        form = std::make_unique<frmOptions>(frmOptions::Services{config, sources, programs, messages});
        showActive(*form);
    }

    /// What is stored of every setting; "<none>" where nothing is.
    [[nodiscard]] QByteArrayList stored() const
    {
        QByteArrayList result;
        for (const Config::Setting &setting : ConfigSettings::all)
            result << registry
                          .data(applicationPath + '\\' + QString(setting.section).toLatin1(),
                                QString(setting.name).toLatin1())
                          .value_or("<none>");
        return result;
    }

    void storeAll()
    {
        config.setAutoStart(1);
        config.setremote(1);
        config.setRefreshHost(10);
        config.setRefreshCommand(20);
        config.setRefreshProp(-30);
        config.setEdit(1);
        config.setODBCdsn("events");
        config.setODBCuser("user");
        config.setODBCdb("db");
        config.setODBCdriver("driver");
        config.setODBCserver("server");
    }

    [[nodiscard]] QTabWidget &tabs() const { return *control<QTabWidget>(*form, "tbsOptions"); }
    [[nodiscard]] QLineEdit &field(const char *name) const { return *control<QLineEdit>(*form, name); }
    [[nodiscard]] bool isChecked(const char *name) const { return control<QAbstractButton>(*form, name)->isChecked(); }

    /// The page that is seen; it fills what the tabs leave of their widget.
    [[nodiscard]] QString page() const
    {
        QStringList seen;
        for (int number = 0; number < 4; ++number) {
            const auto *each = control<QWidget>(*form, qPrintable(QStringLiteral("picOptions_%1").arg(number)));
            if (each->isVisible())
                seen << each->objectName();
        }
        return seen.join(' ');
    }

    void expectError(const QString &text) { messages.expectShow(text, Messages::Icon::Critical); }

    void clickTab(int index) const
    {
        QTabBar *bar = tabs().tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }

    FakeRegistry registry;
    Config config{registry};
    FakeDataSources sources;
    FakePrograms programs;
    FakeMessages messages;
    const UseMessages use{messages};
    std::unique_ptr<frmOptions> form;
};

// Loading

TEST_F(Options, ShowTheDefaultsOfAFreshMachine)
{
    open();
    EXPECT_FALSE(isChecked("AutoStartFlag"));
    EXPECT_FALSE(isChecked("RemoteFlag"));
    EXPECT_TRUE(isChecked("DefaultEdit_0"));
    EXPECT_FALSE(isChecked("DefaultEdit_1"));
    EXPECT_EQ(field("RefreshHost").text(), "0");
    EXPECT_EQ(field("RefreshCommand").text(), "5");
    EXPECT_EQ(field("RefreshProp").text(), "0");
    EXPECT_FALSE(isChecked("ODBCButton"));
}

TEST_F(Options, ShowWhatIsStored)
{
    storeAll();
    open();
    EXPECT_TRUE(isChecked("AutoStartFlag"));
    EXPECT_TRUE(isChecked("RemoteFlag"));
    EXPECT_FALSE(isChecked("DefaultEdit_0"));
    EXPECT_TRUE(isChecked("DefaultEdit_1"));
    EXPECT_EQ(field("RefreshHost").text(), "10");
    EXPECT_EQ(field("RefreshCommand").text(), "20");
    EXPECT_EQ(field("RefreshProp").text(), "-30");
    EXPECT_EQ(control<QComboBox>(*form, "ODBCdsn")->currentText(), "events");
    EXPECT_EQ(field("ODBCuser").text(), "user");
    EXPECT_EQ(field("ODBCdb").text(), "db");
    EXPECT_EQ(field("ODBCdriver").text(), "driver");
    EXPECT_EQ(field("ODBCserver").text(), "server");
}

TEST_F(Options, ShowACheckForAnyNumberButZeroAndALimitedInterval)
{
    config.setAutoStart(-1);
    config.setremote(7);
    config.setEdit(2);
    config.setRefreshHost(70000);
    open();
    EXPECT_TRUE(isChecked("AutoStartFlag"));
    EXPECT_TRUE(isChecked("RemoteFlag"));
    EXPECT_TRUE(isChecked("DefaultEdit_0"));
    EXPECT_EQ(field("RefreshHost").text(), "65535");
}

TEST_F(Options, OpenWithoutRightsToTheSettingsAndTellWhy)
{
    registry.denied = {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software"};
    messages.expectShow(
        "Run-time error '10001':\n\nUnable to create subkey\n\nThese settings cannot be read and are shown with their "
        "defaults: AutoStart, remote, Edit, RefreshHost, RefreshCommand, RefreshProp, ODBCdsn, ODBCuser, ODBCdb, "
        "ODBCdriver, ODBCserver",
        Messages::Icon::Exclamation);
    open();
    messages.verify();
    EXPECT_EQ(field("RefreshCommand").text(), "5");
}

TEST_F(Options, SettingsThatCouldNotBeReadAreNotReplacedByTheirDefaults)
{
    config.setODBCuser("anna");
    registry.denied = {"HKEY_LOCAL_MACHINE\\SOFTWARE"};
    messages.expectShow("Run-time error '10001':\n\nUnable to create subkey\n\nThese settings cannot be read and are "
                        "shown with their defaults: AutoStart, remote, Edit, RefreshHost, RefreshCommand, RefreshProp, "
                        "ODBCdsn, ODBCuser, ODBCdb, ODBCdriver, ODBCserver",
                        Messages::Icon::Exclamation);
    open();
    expectError("Run-time error '10001':\n\nUnable to create subkey");
    press(*form, "cmdOK");
    messages.verify();

    registry.denied.clear();
    expectError("Run-time error '57':\n\nDevice I/O error\n\nThe settings could not be read before. They are shown "
                "now, and nothing is stored.");
    press(*form, "cmdOK");
    messages.verify();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(field("ODBCuser").text(), "anna");
    EXPECT_EQ(config.ODBCuser(), "anna");

    field("ODBCuser").setText("berta");
    press(*form, "cmdOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(config.ODBCuser(), "berta");
}

TEST_F(Options, ASettingThatIsNoNumberCanBeSetRight)
{
    storeAll();
    config.SetSetting("options", "refreshcommand", "often");
    messages.expectShow("Run-time error '13':\n\nType mismatch\n\nThese settings cannot be read and are shown with "
                        "their defaults: RefreshCommand",
                        Messages::Icon::Exclamation);
    open();
    EXPECT_EQ(field("RefreshCommand").text(), "5");
    EXPECT_EQ(field("RefreshHost").text(), "10");
    press(*form, "cmdOK");
    EXPECT_EQ(config.RefreshCommand(), 5);
}

// Tabs

TEST_F(Options, NeverShowTheFourthTab)
{
    open();
    EXPECT_EQ(tabs().count(), 3);
    for (int times = 0; times < 8; ++times) {
        EXPECT_NE(page(), "picOptions_3");
        key(*form, Qt::Key_Tab, Qt::ControlModifier);
    }
}

TEST_F(Options, OpenOnTheFirstPage)
{
    open();
    EXPECT_EQ(page(), "picOptions_0");
}

TEST_F(Options, AClickOnATabBringsItsPageToTheFront)
{
    open();
    const QPoint place = control<QWidget>(*form, "picOptions_0")->pos();
    for (const int index : {2, 1, 0}) {
        clickTab(index);
        EXPECT_EQ(page(), QStringLiteral("picOptions_%1").arg(index));
        EXPECT_EQ(tabs().currentWidget()->pos(), place);
    }
}

TEST_F(Options, CtrlTabGoesToTheNextTabAndFromTheLastToTheFirst)
{
    open();
    QStringList seen;
    for (int times = 0; times < 4; ++times) {
        key(*form, Qt::Key_Tab, Qt::ControlModifier);
        seen << page();
    }
    EXPECT_EQ(seen, (QStringList{"picOptions_1", "picOptions_2", "picOptions_0", "picOptions_1"}));
}

TEST_F(Options, CtrlShiftTabGoesToThePreviousTabAndFromTheFirstToTheLast)
{
    open();
    QStringList seen;
    for (int times = 0; times < 4; ++times) {
        // The key that comes with Shift is Backtab.
        key(*form, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        seen << page();
    }
    EXPECT_EQ(seen, (QStringList{"picOptions_2", "picOptions_1", "picOptions_0", "picOptions_2"}));
}

TEST_F(Options, TheKeysGoFromTabToTabWhateverHasTheFocus)
{
    open();
    for (const char *name : {"tbsOptions", "cmdApply", "cmdOK"}) {
        control<QWidget>(*form, name)->setFocus();
        const QString before = page();
        key(*form, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_NE(page(), before) << name;
        key(*form, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(page(), before) << name;
    }
    clickTab(2);
    press(*form, "ODBCButton");
    control<QComboBox>(*form, "ODBCdsn")->setFocus();
    key(*form, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(page(), "picOptions_0");
}

// Apply, OK and Cancel

TEST_F(Options, ApplyStoresEveryField)
{
    open();
    control<QCheckBox>(*form, "AutoStartFlag")->click();
    control<QCheckBox>(*form, "RemoteFlag")->click();
    control<QRadioButton>(*form, "DefaultEdit_1")->click();
    clickTab(1);
    field("RefreshHost").setText("70000");
    field("RefreshCommand").setText(" 7 ");
    field("RefreshProp").setText("-1");
    clickTab(2);
    press(*form, "ODBCButton");
    control<QComboBox>(*form, "ODBCdsn")->setEditText("events");
    field("ODBCuser").setText("user");
    field("ODBCdb").setText("db");
    field("ODBCdriver").setText("driver");
    field("ODBCserver").setText("server");
    EXPECT_EQ(stored().count("<none>"), stored().size());
    press(*form, "cmdApply");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(config.AutoStart(), 1);
    EXPECT_EQ(config.remote(), 1);
    EXPECT_EQ(config.Edit(), 1);
    EXPECT_EQ(registry.data(applicationPath + "\\options", "refreshhost"), "70000");
    EXPECT_EQ(config.RefreshCommand(), 7);
    EXPECT_EQ(config.RefreshProp(), -1);
    EXPECT_EQ(config.ODBCdsn(), "events");
    EXPECT_EQ(config.ODBCuser(), "user");
    EXPECT_EQ(config.ODBCdb(), "db");
    EXPECT_EQ(config.ODBCdriver(), "driver");
    EXPECT_EQ(config.ODBCserver(), "server");
}

TEST_F(Options, ApplyWithUnchangedFieldsRewritesEverySettingWithTheSameValues)
{
    storeAll();
    open();
    const QByteArrayList before = stored();
    registry.calls.clear();
    press(*form, "cmdApply");
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(registry.calls.count("RegSetValueExA " + applicationPath + "\\options"), 6);
    EXPECT_EQ(registry.calls.count("RegSetValueExA " + applicationPath + "\\odbc"), 5);
}

TEST_F(Options, AfterApplyEveryOpenWindowThatHasUpdateTimerHasBeenToldOnce)
{
    TimedWindow first;
    TimedWindow second;
    QWidget other;
    for (QWidget *each : QList<QWidget *>{&first, &second, &other})
        showActive(*each);
    open();
    press(*form, "cmdApply");
    EXPECT_EQ(first.updates, 1);
    EXPECT_EQ(second.updates, 1);
    press(*form, "cmdOK");
    EXPECT_EQ(first.updates, 2);
}

TEST_F(Options, OkStoresAndCloses)
{
    open();
    control<QCheckBox>(*form, "AutoStartFlag")->click();
    press(*form, "cmdOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(config.AutoStart(), 1);
}

TEST_F(Options, CancelAfterAChangeLeavesTheStoredSettingsAsTheyWere)
{
    TimedWindow window;
    showActive(window);
    storeAll();
    open();
    const QByteArrayList before = stored();
    control<QCheckBox>(*form, "AutoStartFlag")->click();
    control<QRadioButton>(*form, "DefaultEdit_0")->click();
    field("RefreshHost").setText("99");
    field("ODBCuser").setText("other");
    press(*form, "cmdCancel");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(window.updates, 0);
}

TEST_F(Options, CancelAfterApplyKeepsWhatWasApplied)
{
    open();
    control<QCheckBox>(*form, "AutoStartFlag")->click();
    press(*form, "cmdApply");
    control<QCheckBox>(*form, "AutoStartFlag")->click();
    press(*form, "cmdCancel");
    EXPECT_EQ(config.AutoStart(), 1);
}

TEST_F(Options, EnterIsOkAndEscapeIsCancelWhereverTheFocusIs)
{
    for (const char *name : {"AutoStartFlag", "DefaultEdit_0", "Control"}) {
        open();
        control<QWidget>(*form, name)->setFocus();
        key(*form, Qt::Key_Return);
        EXPECT_EQ(form->result(), QDialog::Accepted) << name;
        EXPECT_FALSE(form->isVisible()) << name;
        open();
        control<QWidget>(*form, name)->setFocus();
        key(*form, Qt::Key_Escape);
        EXPECT_EQ(form->result(), QDialog::Rejected) << name;
        EXPECT_FALSE(form->isVisible()) << name;
    }
    EXPECT_TRUE(programs.started.isEmpty());
}

// Failures

class IntervalThatIsNone : public Options, public testing::WithParamInterface<const char *>
{
};

TEST_P(IntervalThatIsNone, IsReportedAndNothingIsStored)
{
    storeAll();
    TimedWindow window;
    showActive(window);
    open();
    const QByteArrayList before = stored();
    control<QCheckBox>(*form, "AutoStartFlag")->click();
    for (const char *button : {"cmdApply", "cmdOK"}) {
        for (const char *text : {"often", "", "5 minutes", "1,5"}) {
            field(GetParam()).setText(text);
            expectError("Run-time error '13':\n\nType mismatch");
            press(*form, button);
            messages.verify();
        }
        field(GetParam()).setText("2147483648");
        expectError("Run-time error '6':\n\nOverflow");
        press(*form, button);
        messages.verify();
        // The user is where the mistake is, and goes on from there.
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(page(), "picOptions_1");
        EXPECT_EQ(form->focusWidget(), &field(GetParam()));
        clickTab(0);
    }
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(window.updates, 0);
}

INSTANTIATE_TEST_SUITE_P(Fields, IntervalThatIsNone, testing::Values("RefreshHost", "RefreshCommand", "RefreshProp"),
                         [](const auto &tested) { return std::string(tested.param); });

TEST_F(Options, SettingsThatCannotBeWrittenAreReportedAndTheDialogStaysOpen)
{
    open();
    for (const char *denied : {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software", "HKEY_LOCAL_MACHINE\\SOFTWARE"}) {
        registry.denied = {denied};
        for (const char *button : {"cmdApply", "cmdOK"}) {
            expectError("Run-time error '10001':\n\nUnable to create subkey");
            press(*form, button);
            messages.verify();
            EXPECT_TRUE(form->isVisible());
        }
    }
}

TEST_F(Options, SettingsThatTheRegistryDoesNotKeepAreReportedAndTheDialogStaysOpen)
{
    open();
    registry.isFull = true;
    control<QCheckBox>(*form, "RemoteFlag")->click();
    expectError("Run-time error '57':\n\nDevice I/O error\n\nThe registry does not store these settings as "
                "they are: AutoStart, remote, RefreshHost, RefreshCommand, RefreshProp, Edit, ODBCdsn, "
                "ODBCuser, ODBCdb, ODBCdriver, ODBCserver");
    press(*form, "cmdOK");
    messages.verify();
    EXPECT_TRUE(form->isVisible());
}

// The Control Panel

TEST_F(Options, ControlOpensTheProductsControlPanel)
{
    open();
    press(*form, "Control");
    EXPECT_EQ(programs.started, (QList<QStringList>{{"control.exe", "zentilcpl.cpl"}}));
    EXPECT_TRUE(form->isVisible());
}

TEST_F(Options, AControlPanelThatIsMissingIsTold)
{
    programs.isStartable = false;
    open();
    messages.expectShow("Cannot find Zentil Control Panel. Try Start/Settings.");
    press(*form, "Control");
    messages.verify();
    EXPECT_TRUE(form->isVisible());
}

// Structure

TEST_F(Options, EveryControlIsReachedByTabAsThePageIsRead)
{
    config.setODBCdsn("events");
    open();
    const QList<QStringList> pages{
        {"AutoStartFlag", "RemoteFlag", "DefaultEdit_0", "Control"},
        {"RefreshHost", "RefreshCommand", "RefreshProp"},
        {"ODBCButton", "ODBCdsn", "ODBCuser", "ODBCdb", "ODBCdriver", "ODBCserver"},
    };
    for (int index = 0; index < tabs().count(); ++index) {
        clickTab(index);
        tabs().tabBar()->setFocus();
        const QStringList round = tabRound(*form);
        EXPECT_EQ(round.mid(1), pages[index] + QStringList({"cmdOK", "cmdCancel", "cmdApply"}));
    }
}

} // namespace

#include "frmOptionsTest.moc"
