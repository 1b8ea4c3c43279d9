#pragma once

#include <QLatin1String>

#include <array>

/// The kinds of configuration lines. The values are those that the program has always used.
enum class ItemKind : int {
    Other = 0,
    File = 1,
    Registry = 2,
    Line = 3,
    User = 4,
    Group = 5,
    DirectoryService = 6,
    UserRight = 7,
    AccountPolicy = 8,
    AuditPolicy = 9,
};

struct ItemKindRow
{
    ItemKind kind;
    QLatin1String displayName;
    /// The form that edits this kind, and the document's operation that opens it for a row.
    QLatin1String editor;
    QLatin1String editOperation;
};

// clang-format off
/// All kinds, one a row, in the order in which lists and menus show them.
inline constexpr std::array<ItemKindRow, 10> itemKinds {{
    {ItemKind::File,             QLatin1String("File"),              QLatin1String("ConfigDialogNew"),    QLatin1String("Edit_File")},
    {ItemKind::Registry,         QLatin1String("Registry"),          QLatin1String("ConfigDialogReg"),    QLatin1String("Edit_Reg")},
    {ItemKind::User,             QLatin1String("User"),              QLatin1String("ConfigDialogUser"),   QLatin1String("Edit_User")},
    {ItemKind::Group,            QLatin1String("Group"),             QLatin1String("ConfigDialogGroup"),  QLatin1String("Edit_Group")},
    {ItemKind::UserRight,        QLatin1String("User Right"),        QLatin1String("ConfigDialogRight"),  QLatin1String("Edit_Right")},
    {ItemKind::AccountPolicy,    QLatin1String("Account Policy"),    QLatin1String("ConfigDialogPolicy"), QLatin1String("Edit_Policy")},
    {ItemKind::AuditPolicy,      QLatin1String("Audit Policy"),      QLatin1String("ConfigDialogAudit"),  QLatin1String("Edit_Audit")},
    {ItemKind::DirectoryService, QLatin1String("Directory Service"), QLatin1String("ConfigDialogLDAP"),   QLatin1String("Edit_LDAP")},
    {ItemKind::Line,             QLatin1String("Line"),              QLatin1String("ConfigDialogMisc"),   QLatin1String("Edit_Misc")},
    {ItemKind::Other,            QLatin1String("Other"),             QLatin1String("ConfigDialogOther"),  QLatin1String("Edit_Other")},
}};
// clang-format on

[[nodiscard]] const ItemKindRow &itemKindRow(ItemKind kind);
