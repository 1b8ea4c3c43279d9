#include "editors/ItemEditors.h"

#include "editors/ConfigDialogAudit.h"
#include "editors/ConfigDialogGroup.h"
#include "editors/ConfigDialogLDAP.h"
#include "editors/ConfigDialogMisc.h"
#include "editors/ConfigDialogNew.h"
#include "editors/ConfigDialogOther.h"
#include "editors/ConfigDialogPolicy.h"
#include "editors/ConfigDialogReg.h"
#include "editors/ConfigDialogRight.h"
#include "editors/ConfigDialogUser.h"

#include <algorithm>
#include <array>
#include <memory>

namespace {

template<class Form>
ItemEditorForm *make(const EditorServices &services, QWidget *parent)
{
    return new Form(services, parent);
}

struct Maker
{
    ItemKind kind;
    ItemEditorForm *(*make)(const EditorServices &services, QWidget *parent);
};

// clang-format off
/// The kinds that have an editor, one a row.
constexpr std::array makers {
    Maker{ItemKind::File,             make<ConfigDialogNew>},
    Maker{ItemKind::Registry,         make<ConfigDialogReg>},
    Maker{ItemKind::User,             make<ConfigDialogUser>},
    Maker{ItemKind::Group,            make<ConfigDialogGroup>},
    Maker{ItemKind::UserRight,        make<ConfigDialogRight>},
    Maker{ItemKind::AccountPolicy,    make<ConfigDialogPolicy>},
    Maker{ItemKind::AuditPolicy,      make<ConfigDialogAudit>},
    Maker{ItemKind::DirectoryService, make<ConfigDialogLDAP>},
    Maker{ItemKind::Line,             make<ConfigDialogMisc>},
    Maker{ItemKind::Other,            make<ConfigDialogOther>},
};
// clang-format on

const Maker *makerOf(ItemKind kind)
{
    const auto found =
        std::find_if(makers.begin(), makers.end(), [kind](const Maker &maker) { return maker.kind == kind; });
    return found == makers.end() ? nullptr : &*found;
}

} // namespace

ItemEditors::ItemEditors(const EditorServices &services)
    : m_services(services)
{
}

ItemEditors::~ItemEditors()
{
    for (const QPointer<ItemEditorForm> &editor : std::vector(m_editors))
        std::unique_ptr<ItemEditorForm>(editor.data()).reset();
}

bool ItemEditors::hasEditor(ItemKind kind) const
{
    return makerOf(kind) != nullptr;
}

ItemEditor &ItemEditors::newEditor(ItemKind kind)
{
    return makeEditor(kind);
}

ItemEditor &ItemEditors::sharedEditor(ItemKind kind)
{
    QPointer<ItemEditorForm> &shared = m_shared[kind];
    if (!shared)
        shared = &makeEditor(kind);
    return *shared;
}

void ItemEditors::closeEditorsOf(const ItemDocument &document)
{
    for (const QPointer<ItemEditorForm> &editor : std::vector(m_editors)) {
        if (editor && editor->windowToAffect() == &document) {
            editor->close();
            forget(*editor);
        }
    }
}

ItemEditorForm &ItemEditors::makeEditor(ItemKind kind)
{
    const Maker *maker = makerOf(kind);
    Q_ASSERT(maker);
    ItemEditorForm *editor = maker->make(m_services, m_parentWindow);
    m_editors.emplace_back(editor);
    // A closed form is still there until the event loop comes to it, but nobody may be given it any more.
    QObject::connect(editor, &QDialog::finished, editor, [this, editor] { forget(*editor); });
    return *editor;
}

void ItemEditors::forget(const ItemEditorForm &editor)
{
    std::erase_if(m_editors, [&](const QPointer<ItemEditorForm> &each) { return !each || each == &editor; });
    std::erase_if(m_shared, [&](const auto &each) { return !each.second || each.second == &editor; });
}
