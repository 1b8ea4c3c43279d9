#pragma once

#include "editors/FlagEditorForm.h"

#include <QLatin1String>

class Accounts;
class BrowseUsers;
struct EditorServices;

/// The base of the editors for users and groups: lines whose object is a tag and behind it a name, which may be picked
/// from a list of those that there are.
class AccountEditorForm : public FlagEditorForm
{
    Q_OBJECT

protected:
    struct Kind
    {
        QLatin1String form;
        QLatin1String title;
        QLatin1String nameLabel;
        /// Stands in front of the name in a line, and not in the field.
        QLatin1String tag;
        const FlagAlphabet &flags;
        void (BrowseUsers::*list)(const QString &host, bool isRemote);
    };

    AccountEditorForm(const Kind &kind, const EditorServices &services, QWidget *parent);

    /// Whatever stands in the place of the tag is taken for it.
    void showObject(const QString &object) final;
    [[nodiscard]] QString object() const final;

private:
    void browse();

    const Kind &m_kind;
    Accounts &m_accounts;
    LineEdit *m_objectName;
};
