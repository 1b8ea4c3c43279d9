#include "editors/ConfigDialogMisc.h"

#include "editors/EditorServices.h"
#include "editors/LineEdit.h"

namespace {

/// How much of a line is seen at first, in characters.
constexpr int lineWidth = 80;

} // namespace

ConfigDialogMisc::ConfigDialogMisc(const EditorServices &services, QWidget *parent)
    : ItemEditorForm(QLatin1String("ConfigDialogMisc"), QStringLiteral("Misc"), services.messages, parent)
    , m_item(addField(QLatin1String("Item"), QLatin1String("Label1"), tr("&Line")))
{
    m_item->setMinimumWidth(lineWidth * fontMetrics().averageCharWidth());
    addButtons(QStringLiteral("&Apply"), QStringLiteral("&Close"));
}

void ConfigDialogMisc::showItem(const QString &line)
{
    m_item->setLine(line);
}

std::optional<ItemEditorForm::Item> ConfigDialogMisc::collectItem()
{
    // Nothing is escaped or quoted in the place of the prefix.
    return Item{QString(), m_item->line(), QString()};
}
