#include "settings/frmAbout.h"

#include "tests/support/FakeFileAccess.h"
#include "tests/support/FakePrograms.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/FormStructure.h"
#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include <memory>

namespace {

class AboutBox : public testing::Test
{
protected:
    AboutBox() { QApplication::setApplicationVersion("1.20.3"); }
    ~AboutBox() override { QApplication::setApplicationVersion(version); }

    void open()
    {
        box = std::make_unique<frmAbout>(frmAbout::Services{registry, files, programs, messages});
        showActive(*box);
    }

    const QString version = QApplication::applicationVersion();
    FakeRegistry registry;
    FakeFileAccess files;
    FakePrograms programs;
    FakeMessages messages;
    const UseMessages use{messages};
    std::unique_ptr<frmAbout> box;
};

TEST_F(AboutBox, ShowsTheVersion)
{
    open();
    EXPECT_EQ(control<QLabel>(*box, "lblVersion")->text(), "Version 1.20.3");
}

TEST_F(AboutBox, ShowsThreeNumbersOfAVersion)
{
    QApplication::setApplicationVersion("2");
    open();
    EXPECT_EQ(control<QLabel>(*box, "lblVersion")->text(), "Version 2.0.0");
}

TEST_F(AboutBox, NamesTheProgram)
{
    open();
    EXPECT_EQ(control<QLabel>(*box, "lblTitle")->text(), "ZentilConf");
    EXPECT_EQ(box->windowTitle(), "About ZentilConf");
    EXPECT_FALSE(control<QLabel>(*box, "picIcon")->pixmap().isNull());
}

TEST_F(AboutBox, ClosesWithItsButtonEnterAndEscape)
{
    open();
    press(*box, "cmdOK");
    EXPECT_FALSE(box->isVisible());
    showActive(*box);
    key(*box, Qt::Key_Return);
    EXPECT_FALSE(box->isVisible());
    showActive(*box);
    key(*box, Qt::Key_Escape);
    EXPECT_FALSE(box->isVisible());
}

TEST_F(AboutBox, StartsTheSystemInformationTool)
{
    registry.set("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", "C:\\info.exe");
    open();
    press(*box, "cmdSysInfo");
    EXPECT_EQ(programs.started, QList<QStringList>{QStringList{"C:\\info.exe"}});
    EXPECT_TRUE(box->isVisible());
}

TEST_F(AboutBox, WithoutASystemInformationToolSaysSo)
{
    open();
    messages.expectShow("System Information Is Unavailable At This Time");
    press(*box, "cmdSysInfo");
    messages.verify();
    EXPECT_EQ(programs.started, QList<QStringList>());
}

TEST_F(AboutBox, SaysSoWhenTheToolCannotBeStarted)
{
    programs.tools = QStringList{"/usr/bin/hardinfo"};
    programs.isStartable = false;
    open();
    messages.expectShow("System Information Is Unavailable At This Time");
    press(*box, "cmdSysInfo");
    messages.verify();
}

TEST_F(AboutBox, IsNamedLabelledAndReachedByKeys)
{
    open();
    EXPECT_EQ(box->objectName(), "frmAbout");
    expectNamedAndLabelled(*box);
    EXPECT_EQ(sharedMnemonics(mnemonicTexts(*box)), QStringList());
    EXPECT_EQ(tabRound(*box), (QStringList{"cmdOK", "cmdSysInfo"}));
}

} // namespace
