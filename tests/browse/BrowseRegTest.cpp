#include "browse/BrowseReg.h"

#include "tests/browse/TreeGestures.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/Gestures.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <memory>

namespace {

class BrowseRegTest : public testing::Test
{
protected:
    BrowseRegTest()
    {
        registry.make("HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor\\Product");
        registry.make("HKEY_LOCAL_MACHINE\\SYSTEM");
    }

    void TearDown() override
    {
        picker.reset();
        EXPECT_EQ(registry.openHandles(), 0) << "a key was left open";
    }

    void open(const QString &path, const QString &host = {})
    {
        picker = std::make_unique<BrowseReg>(registry, messages, host, !host.isEmpty(), nullptr);
        picker->SetItem(path);
        showActive(*picker);
    }

    [[nodiscard]] QTreeWidget &tree() const { return *control<QTreeWidget>(*picker, "KeyList"); }
    [[nodiscard]] QString shownPath() const { return control<QLineEdit>(*picker, "ObjectName")->text(); }

    [[nodiscard]] QStringList roots() const { return childrenOf(*tree().invisibleRootItem()); }
    [[nodiscard]] QTreeWidgetItem &node(const QStringList &texts) const { return nodeAt(tree(), texts); }
    void click(const QTreeWidgetItem &clicked) const { clickNode(tree(), clicked); }

    FakeRegistry registry;
    FakeMessages messages;
    std::unique_ptr<BrowseReg> picker;
};

TEST_F(BrowseRegTest, FiveHivesAreOffered)
{
    open("");
    EXPECT_EQ(roots(), (QStringList{"HKEY_CLASSES_ROOT", "HKEY_CURRENT_CONFIG", "HKEY_CURRENT_USER",
                                    "HKEY_LOCAL_MACHINE", "HKEY_USERS"}));
    // Nothing is read before somebody asks.
    EXPECT_EQ(registry.calls, QByteArrayList());
    EXPECT_EQ(shownPath(), "");
}

TEST_F(BrowseRegTest, ANodeThatHasNotBeenReadHasAPlaceholder)
{
    open("");
    const QTreeWidgetItem &root = node({"HKEY_LOCAL_MACHINE"});
    ASSERT_EQ(childrenOf(root), QStringList{"Junk"});
    EXPECT_EQ(root.child(0)->data(0, Qt::UserRole).toString(), root.data(0, Qt::UserRole).toString() + "::Junk");
}

TEST_F(BrowseRegTest, ExpandingReadsOneLevel)
{
    open("");
    node({"HKEY_LOCAL_MACHINE"}).setExpanded(true);
    EXPECT_EQ(childrenOf(node({"HKEY_LOCAL_MACHINE"})), (QStringList{"SOFTWARE", "SYSTEM"}));
    EXPECT_EQ(childrenOf(node({"HKEY_LOCAL_MACHINE", "SOFTWARE"})), QStringList{"Junk"});
}

TEST_F(BrowseRegTest, ANodeWithoutSubKeysLosesItsExpandMark)
{
    open("");
    node({"HKEY_LOCAL_MACHINE"}).setExpanded(true);
    QTreeWidgetItem &leaf = node({"HKEY_LOCAL_MACHINE", "SYSTEM"});
    leaf.setExpanded(true);
    EXPECT_EQ(childrenOf(leaf), QStringList());
}

TEST_F(BrowseRegTest, ExpandingAgainAddsWhatIsNew)
{
    open("");
    QTreeWidgetItem &root = node({"HKEY_LOCAL_MACHINE"});
    root.setExpanded(true);
    root.setExpanded(false);
    registry.make("HKEY_LOCAL_MACHINE\\ALFA");
    root.setExpanded(true);
    EXPECT_EQ(childrenOf(root), (QStringList{"SOFTWARE", "SYSTEM", "ALFA"}));
}

TEST_F(BrowseRegTest, APathOpensTheTreeAlongIt)
{
    open("HKLM\\SOFTWARE");
    EXPECT_TRUE(node({"HKEY_LOCAL_MACHINE"}).isExpanded());
    QTreeWidgetItem &software = node({"HKEY_LOCAL_MACHINE", "SOFTWARE"});
    EXPECT_TRUE(software.isExpanded());
    EXPECT_TRUE(software.isSelected());
    EXPECT_EQ(childrenOf(software), QStringList{"Vendor"});
    EXPECT_EQ(shownPath(), "HKLM\\SOFTWARE");
    EXPECT_TRUE(tree().viewport()->rect().contains(tree().visualItemRect(&software)));
}

TEST_F(BrowseRegTest, ASeparatorAtTheEndMakesNoDifference)
{
    open("HKLM\\SOFTWARE\\");
    EXPECT_TRUE(node({"HKEY_LOCAL_MACHINE", "SOFTWARE"}).isSelected());
    EXPECT_EQ(shownPath(), "HKLM\\SOFTWARE");
    open("HKLM\\");
    EXPECT_TRUE(node({"HKEY_LOCAL_MACHINE"}).isSelected());
    EXPECT_EQ(shownPath(), "HKLM");
}

TEST_F(BrowseRegTest, APathIsFoundWhateverItsCase)
{
    open("HKEY_LOCAL_MACHINE\\software\\VENDOR");
    EXPECT_TRUE(node({"HKEY_LOCAL_MACHINE", "SOFTWARE", "Vendor"}).isSelected());
    EXPECT_EQ(shownPath(), "HKLM\\SOFTWARE\\Vendor");
}

TEST_F(BrowseRegTest, AHiveIsKnownInCapitalsOnly)
{
    messages.expectShow("Unable to read key hklm\\software");
    open("hklm\\software");
    EXPECT_EQ(shownPath(), "hklm\\software");
}

TEST_F(BrowseRegTest, HkddLeadsToTheDynamicDataWhichIsShownAsHkdn)
{
    open("HKDD");
    EXPECT_TRUE(registry.calls.contains("RegOpenKeyExA HKEY_DYN_DATA"));
    EXPECT_EQ(shownPath(), "HKDN");
    EXPECT_TRUE(tree().selectedItems().isEmpty()) << "the hive is not offered";
}

TEST_F(BrowseRegTest, HkdnIsNoHive)
{
    messages.expectShow("Unable to read key HKDN");
    open("HKDN");
    EXPECT_EQ(shownPath(), "HKDN");
}

TEST_F(BrowseRegTest, AKeyThatIsMissingIsToldAndStaysInTheField)
{
    messages.expectShow("Unable to read key HKLM\\NONE\\x");
    open("HKLM\\NONE\\x");
    EXPECT_EQ(shownPath(), "HKLM\\NONE\\x");
    EXPECT_EQ(childrenOf(node({"HKEY_LOCAL_MACHINE"})), QStringList{"Junk"});
}

TEST_F(BrowseRegTest, ANodeThatCannotBeReadStaysAsItWas)
{
    registry.denied << "HKEY_LOCAL_MACHINE\\SYSTEM";
    open("HKLM");
    QTreeWidgetItem &denied = node({"HKEY_LOCAL_MACHINE", "SYSTEM"});
    for (int attempt = 0; attempt < 2; ++attempt) {
        messages.expectShow("Unable to read key HKEY_LOCAL_MACHINE\\SYSTEM");
        denied.setExpanded(true);
        messages.verify();
        EXPECT_EQ(childrenOf(denied), QStringList{"Junk"});
        EXPECT_FALSE(denied.isExpanded());
    }
    registry.denied.clear();
    denied.setExpanded(true);
    EXPECT_EQ(childrenOf(denied), QStringList());
}

TEST_F(BrowseRegTest, SelectingANodeShowsItsPath)
{
    open("HKLM\\SOFTWARE\\Vendor");
    click(node({"HKEY_LOCAL_MACHINE", "SYSTEM"}));
    EXPECT_EQ(shownPath(), "HKLM\\SYSTEM");
    click(node({"HKEY_USERS"}));
    EXPECT_EQ(shownPath(), "HKU");
    // Over a text of the user's own too.
    control<QLineEdit>(*picker, "ObjectName")->setText("HKU\\mine");
    click(node({"HKEY_USERS"}));
    EXPECT_EQ(shownPath(), "HKU");
}

TEST_F(BrowseRegTest, TheTitleNamesTheHost)
{
    open("");
    EXPECT_EQ(picker->windowTitle(), "Registry [resizable]");
    registry.hosts << "srv";
    open("", "srv");
    EXPECT_EQ(picker->windowTitle(), "Registry (\\\\srv) [resizable]");
}

TEST_F(BrowseRegTest, AHostsRegistryIsBrowsed)
{
    registry.hosts << "srv";
    registry.make("\\\\srv\\HKEY_LOCAL_MACHINE\\SOFTWARE\\There");
    open("HKLM\\SOFTWARE", "srv");
    EXPECT_EQ(roots()[3], "HKEY_LOCAL_MACHINE(\\\\srv)");
    EXPECT_EQ(roots()[4], "HKEY_USERS");
    EXPECT_EQ(childrenOf(node({"HKEY_LOCAL_MACHINE(\\\\srv)", "SOFTWARE"})), QStringList{"There"});
    EXPECT_EQ(shownPath(), "HKLM\\SOFTWARE");

    registry.denied << "\\\\srv\\HKEY_LOCAL_MACHINE\\SOFTWARE\\There";
    messages.expectShow("Unable to read key HKEY_LOCAL_MACHINE\\SOFTWARE\\There from srv");
    node({"HKEY_LOCAL_MACHINE(\\\\srv)", "SOFTWARE", "There"}).setExpanded(true);
}

TEST_F(BrowseRegTest, WithAnUnreachableHostTheLocalRegistryIsBrowsed)
{
    messages.expectShow("Unable to read key HKLM\\SOFTWARE at srv. Trying local system.");
    open("HKLM\\SOFTWARE", "srv");
    messages.verify();
    EXPECT_EQ(picker->windowTitle(), "Registry [resizable]");
    EXPECT_EQ(roots()[3], "HKEY_LOCAL_MACHINE");
    EXPECT_EQ(childrenOf(node({"HKEY_LOCAL_MACHINE", "SOFTWARE"})), QStringList{"Vendor"});
    // From now on, whatever the host does.
    registry.hosts << "srv";
    registry.calls.clear();
    node({"HKEY_LOCAL_MACHINE", "SYSTEM"}).setExpanded(true);
    for (const QByteArray &call : registry.calls)
        EXPECT_FALSE(call.startsWith("RegConnectRegistryA")) << call.constData();
}

TEST_F(BrowseRegTest, AKeyThatIsNeitherThereNorHereIsToldTwice)
{
    registry.hosts << "srv";
    messages.expectShow("Unable to read key HKU\\x at srv. Trying local system.");
    messages.expectShow("Unable to read key HKU\\x");
    open("HKU\\x", "srv");
    EXPECT_EQ(shownPath(), "HKU\\x");
}

TEST_F(BrowseRegTest, TheKeyboardIsEnough)
{
    open("");
    EXPECT_EQ(picker->focusWidget()->objectName(), "KeyList");
    key(*picker, Qt::Key_End);
    key(*picker, Qt::Key_Up);
    EXPECT_EQ(shownPath(), "HKLM");
    key(*picker, Qt::Key_Right);
    key(*picker, Qt::Key_Right);
    EXPECT_EQ(shownPath(), "HKLM\\SOFTWARE");
    key(*picker, Qt::Key_Return);
    EXPECT_EQ(picker->result(), QDialog::Accepted);
    EXPECT_FALSE(picker->isVisible());
    EXPECT_EQ(picker->keyPath(), "HKLM\\SOFTWARE");
}

TEST_F(BrowseRegTest, EscapeAndCancelRejectIt)
{
    open("HKLM");
    key(*picker, Qt::Key_Escape);
    EXPECT_EQ(picker->result(), QDialog::Rejected);
    EXPECT_FALSE(picker->isVisible());
    open("HKLM");
    press(*picker, "CancelButton");
    EXPECT_EQ(picker->result(), QDialog::Rejected);
    EXPECT_FALSE(picker->isVisible());
}

TEST_F(BrowseRegTest, APathMayBeTyped)
{
    open("");
    auto *field = control<QLineEdit>(*picker, "ObjectName");
    field->setFocus();
    QTest::keyClicks(field, "HKCU\\Software");
    press(*picker, "OKButton");
    EXPECT_EQ(picker->keyPath(), "HKCU\\Software");
}

TEST_F(BrowseRegTest, TreeAndFieldFollowTheWindowsSize)
{
    open("");
    const QSize before = tree().size();
    const int field = control<QLineEdit>(*picker, "ObjectName")->width();
    picker->resize(picker->size() + QSize(200, 150));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree().size() == before + QSize(200, 150); }));
    EXPECT_EQ(control<QLineEdit>(*picker, "ObjectName")->width(), field + 200);
}

TEST_F(BrowseRegTest, EveryControlIsNamedAndLabelled)
{
    open("");
    EXPECT_EQ(picker->objectName(), "BrowseReg");
    EXPECT_EQ(control<QLabel>(*picker, "Label1")->buddy(), control<QLineEdit>(*picker, "ObjectName"));
    EXPECT_FALSE(tree().accessibleName().isEmpty());
    EXPECT_TRUE(control<QPushButton>(*picker, "OKButton")->isDefault());
}

} // namespace
