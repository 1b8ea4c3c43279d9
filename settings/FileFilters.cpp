#include "settings/FileFilters.h"

#include <QFileDialog>

void setFileFilters(QFileDialog &dialog, const QString &filters)
{
    const QStringList parts = filters.split(u'|', Qt::SkipEmptyParts);
    QStringList nameFilters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[i + 1];
        nameFilters << QStringLiteral("%1 (%2)").arg(parts[i], pattern);
    }
    // The toolkit takes the last parentheses for the pattern; with this they are not shown.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters);
}
