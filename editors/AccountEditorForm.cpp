#include "editors/AccountEditorForm.h"

#include "browse/BrowseUsers.h"
#include "editors/EditorServices.h"
#include "editors/LineEdit.h"
#include "editors/RunDialog.h"

#include <QPushButton>

namespace {

QString withoutLeadingSpaces(const QString &text)
{
    qsizetype spaces = 0;
    while (spaces < text.size() && text[spaces] == u' ')
        ++spaces;
    return text.mid(spaces);
}

} // namespace

AccountEditorForm::AccountEditorForm(const Kind &kind, const EditorServices &services, QWidget *parent)
    : FlagEditorForm(kind.form, kind.title, services.messages, parent)
    , m_kind(kind)
    , m_accounts(services.accounts)
    , m_objectName(addObjectField(kind.nameLabel))
{
    connect(addButtonBehind(QLatin1String("Browse"), QStringLiteral("Browse...")), &QPushButton::clicked, this,
            &AccountEditorForm::browse);
    addPrefix();
    addFlags(kind.flags);
    addButtons(QStringLiteral("&OK"), QStringLiteral("&Close"));
}

void AccountEditorForm::showObject(const QString &object)
{
    m_objectName->setLine(object.mid(m_kind.tag.size()));
}

QString AccountEditorForm::object() const
{
    return m_kind.tag + withoutLeadingSpaces(m_objectName->line());
}

void AccountEditorForm::browse()
{
    auto *picker = new BrowseUsers(m_accounts, this);
    (picker->*m_kind.list)(host(), isRemote());
    // Also when it was cancelled: the name is empty then.
    runDialog(picker, [&](int) { m_objectName->setLine(picker->Selected()); });
}
