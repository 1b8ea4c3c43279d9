#include "editors/FlagEditorForm.h"

#include "config/ItemDocument.h"
#include "editors/FlagPanel.h"
#include "editors/LineEdit.h"

const QString &FlagEditorForm::BuildFlags()
{
    m_flags = m_panel->BuildFlags();
    return m_flags;
}

LineEdit *FlagEditorForm::addObjectField(const QString &label, const QString &toolTip)
{
    m_objectName = addField(QLatin1String("ObjectName"), QLatin1String("Label1"), label, toolTip);
    return m_objectName;
}

void FlagEditorForm::addPrefix()
{
    m_prefix = addPrefixField(QLatin1String("Label2"));
}

FlagPanel *FlagEditorForm::addFlags(const FlagAlphabet &alphabet)
{
    m_panel = new FlagPanel(alphabet, QLatin1String("Label3"), this);
    addPart(*m_panel);
    return m_panel;
}

void FlagEditorForm::showObject(const QString &object)
{
    if (m_objectName)
        m_objectName->setLine(object);
}

QString FlagEditorForm::object() const
{
    return m_objectName ? m_objectName->line() : QString();
}

void FlagEditorForm::showPrefix(const QString &prefix)
{
    if (m_prefix)
        m_prefix->setLine(prefix);
}

QString FlagEditorForm::prefix() const
{
    return m_prefix ? m_prefix->line() : QString();
}

bool FlagEditorForm::acceptsFlags(const QString &flags)
{
    return requireFlags(flags, prefix());
}

void FlagEditorForm::showItem(const QString &line)
{
    QString prefix;
    QString object;
    QString flags;
    document().ParseLine(line, prefix, object, flags);
    m_panel->ParseFlags(flags);
    showPrefix(prefix);
    showObject(object);
}

std::optional<ItemEditorForm::Item> FlagEditorForm::collectItem()
{
    if (!acceptsFlags(BuildFlags()))
        return std::nullopt;
    return Item{object(), prefix(), m_flags};
}
