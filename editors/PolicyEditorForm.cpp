#include "editors/PolicyEditorForm.h"

PolicyEditorForm::PolicyEditorForm(QLatin1String name, const QString &title, QLatin1String object, Messages &messages,
                                   QWidget *parent)
    : FlagEditorForm(name, title, messages, parent)
    , m_object(object)
{
    setAfterAdding(AfterAdding::Closes);
}
