#include "config/ItemKind.h"

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

TEST(ItemKinds, StandInTheOrderOfListsAndMenus)
{
    QStringList names;
    for (const ItemKindRow &row : itemKinds)
        names << row.displayName;
    EXPECT_EQ(names, QStringList({"File", "Registry", "User", "Group", "User Right", "Account Policy", "Audit Policy",
                                  "Directory Service", "Line", "Other"}));
}

TEST(ItemKinds, EveryValueStandsOnceWithItsEditorAndOperation)
{
    const QStringList expected{
        "Other ConfigDialogOther Edit_Other",
        "File ConfigDialogNew Edit_File",
        "Registry ConfigDialogReg Edit_Reg",
        "Line ConfigDialogMisc Edit_Misc",
        "User ConfigDialogUser Edit_User",
        "Group ConfigDialogGroup Edit_Group",
        "Directory Service ConfigDialogLDAP Edit_LDAP",
        "User Right ConfigDialogRight Edit_Right",
        "Account Policy ConfigDialogPolicy Edit_Policy",
        "Audit Policy ConfigDialogAudit Edit_Audit",
    };
    QStringList found;
    for (int value = 0; value < int(itemKinds.size()); ++value) {
        const ItemKindRow &row = itemKindRow(ItemKind(value));
        EXPECT_EQ(int(row.kind), value);
        found << QStringList{row.displayName, row.editor, row.editOperation}.join(' ');
    }
    EXPECT_EQ(found, expected);
}

} // namespace
