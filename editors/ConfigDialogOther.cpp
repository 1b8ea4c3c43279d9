#include "editors/ConfigDialogOther.h"

#include "config/ItemDocument.h"
#include "editors/ConfigDialogFlags.h"
#include "editors/EditorServices.h"
#include "editors/LineEdit.h"
#include "editors/RunDialog.h"

#include <QPushButton>

ConfigDialogOther::ConfigDialogOther(const EditorServices &services, QWidget *parent)
    : ItemEditorForm(QLatin1String("ConfigDialogOther"), QStringLiteral("Other"), services.messages, parent)
    , m_objectName(addField(QLatin1String("ObjectName"), QLatin1String("Label1"), QStringLiteral("Object name"),
                            QStringLiteral("Name of object (path, registry, sql) to check")))
    , m_prefix(addPrefixField(QLatin1String("Label2")))
    , m_objectFlags(addField(
          QLatin1String("ObjectFlags"), QLatin1String("Label3"), QStringLiteral("Flags"),
          QStringLiteral("Settings appropriate for your object type; a complete list can be found in your manual")))
{
    connect(addButtonBehind(QLatin1String("FlagsInquire"), tr("&Flags...")), &QPushButton::clicked, this,
            &ConfigDialogOther::chooseFlags);
    addButtons(QStringLiteral("&Apply"), QStringLiteral("&Close"));
}

void ConfigDialogOther::showItem(const QString &line)
{
    QString prefix;
    QString object;
    QString flags;
    document().ParseLine(line, prefix, object, flags);
    m_prefix->setLine(prefix);
    m_objectName->setLine(object);
    m_objectFlags->setLine(flags);
}

std::optional<ItemEditorForm::Item> ConfigDialogOther::collectItem()
{
    if (!requireFlags(m_objectFlags->line(), m_prefix->line()))
        return std::nullopt;
    return Item{m_objectName->line(), m_prefix->line(), m_objectFlags->line()};
}

void ConfigDialogOther::chooseFlags()
{
    auto *chooser = new ConfigDialogFlags(this);
    runDialog(chooser, [&](int result) {
        if (result == ConfigDialogFlags::OK)
            m_objectFlags->setLine(chooser->flags());
    });
}
