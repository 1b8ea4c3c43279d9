#include "app/DocumentCommands.h"

#include "config/ConfigForm.h"
#include "config/ItemKind.h"

#include <algorithm>
#include <array>

namespace {

template<void (ConfigForm::*operation)()>
void forward(ConfigForm &document)
{
    (document.*operation)();
}

/// Opens the editor for the current row.
template<void (ConfigForm::*operation)(qint16)>
void edit(ConfigForm &document)
{
    (document.*operation)(-1);
}

template<ItemKind kind>
void addNew(ConfigForm &document)
{
    document.AddNew(itemKindRow(kind).displayName);
}

/// This name is not the kind's. No document knows it, so the entry opens no editor; the documents' own lists of kinds
/// do. It has always been so and stays so.
void addNewAudit(ConfigForm &document)
{
    document.AddNew(QStringLiteral("Audity Policy"));
}

// clang-format off
constexpr std::array<DocumentCommand, 27> documentCommands {{
    {QLatin1String("mnuItemNewFile"),     addNew<ItemKind::File>,             ItemKind::File},
    {QLatin1String("mnuItemNewReg"),      addNew<ItemKind::Registry>,         ItemKind::Registry},
    {QLatin1String("mnuItemNewUser"),     addNew<ItemKind::User>,             ItemKind::User},
    {QLatin1String("mnuItemNewGroup"),    addNew<ItemKind::Group>,            ItemKind::Group},
    {QLatin1String("mnuItemNewPolicy"),   addNew<ItemKind::AccountPolicy>,    ItemKind::AccountPolicy},
    {QLatin1String("mnuItemNewRight"),    addNew<ItemKind::UserRight>,        ItemKind::UserRight},
    {QLatin1String("mnuItemNewAudit"),    addNewAudit,                        ItemKind::AuditPolicy},
    {QLatin1String("mnuItemNewLDAP"),     addNew<ItemKind::DirectoryService>, ItemKind::DirectoryService},
    {QLatin1String("mnuItemNewLine"),     addNew<ItemKind::Line>,             ItemKind::Line},
    {QLatin1String("mnuItemNewOther"),    addNew<ItemKind::Other>,            ItemKind::Other},

    {QLatin1String("mnuItemEditFile"),    edit<&ConfigForm::Edit_File>,       ItemKind::File},
    {QLatin1String("mnuItemEditReg"),     edit<&ConfigForm::Edit_Reg>,        ItemKind::Registry},
    {QLatin1String("mnuItemEditUser"),    edit<&ConfigForm::Edit_User>,       ItemKind::User},
    {QLatin1String("mnuItemEditGroup"),   edit<&ConfigForm::Edit_Group>,      ItemKind::Group},
    {QLatin1String("mnuItemEditRight"),   edit<&ConfigForm::Edit_Right>,      ItemKind::UserRight},
    {QLatin1String("mnuItemEditPolicy"),  edit<&ConfigForm::Edit_Policy>,     ItemKind::AccountPolicy},
    {QLatin1String("mnuItemEditAudit"),   edit<&ConfigForm::Edit_Audit>,      ItemKind::AuditPolicy},
    {QLatin1String("mnuItemEditLDAP"),    edit<&ConfigForm::Edit_LDAP>,       ItemKind::DirectoryService},
    {QLatin1String("mnuItemEditLine"),    edit<&ConfigForm::Edit_Misc>,       ItemKind::Line},
    {QLatin1String("mnuItemEditOther"),   edit<&ConfigForm::Edit_Other>,      ItemKind::Other},

    {QLatin1String("mnuItemTextComment"), forward<&ConfigForm::mnuItemTextComment_Click>},
    {QLatin1String("mnuItemDelete"),      forward<&ConfigForm::Remove_Other>},
    {QLatin1String("mnuEditUndo"),        forward<&ConfigForm::mnuEditUndo_Click>},
    {QLatin1String("mnuEditCut"),         forward<&ConfigForm::mnuEditCut_Click>},
    {QLatin1String("mnuEditCopy"),        forward<&ConfigForm::mnuEditCopy_Click>},
    {QLatin1String("mnuEditPaste"),       forward<&ConfigForm::mnuEditPaste_Click>},
    {QLatin1String("mnuWindowFont"),      forward<&ConfigForm::ChangeFont>},
}};
// clang-format on

} // namespace

const DocumentCommand *documentCommand(QLatin1String entry)
{
    const auto row = std::find_if(documentCommands.begin(), documentCommands.end(),
                                  [entry](const DocumentCommand &each) { return each.entry == entry; });
    return row == documentCommands.end() ? nullptr : &*row;
}
