#pragma once

#include "config/DocumentShell.h"
#include "platform/RuntimeError.h"

#include <QStringList>

#include <array>
#include <functional>

/// What the benchmarks share: lines to work on, and a main window that does nothing.

/// Lines of every kind, no two next to each other alike.
inline QStringList realisticLines(int count)
{
    QStringList lines;
    lines.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QString number = QString::number(i);
        const std::array shapes{
            QStringLiteral("C:\\Program Files\\Vendor\\Module%1\\library.dll $(A),EVT4101").arg(number),
            QStringLiteral("=\"C:\\Program Files\\Vendor %1\" tcmvsniogpz12").arg(number),
            QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor\\Key%1 $(RA),EVT4201,G2").arg(number),
            QStringLiteral("; why the next lines stand here, number %1").arg(number),
            QStringLiteral("NTUSER:user%1 ncCdjhspw,EVT4301").arg(number),
            QStringLiteral("!!C:\\Windows\\Temp\\%1").arg(number),
            QStringLiteral("LDAP://dc1.example.com/ou=%1,dc=example,dc=com??sub?(objectClass=user) 12,D64").arg(number),
            QStringLiteral("#define MAILSUBJECT \"report %1\"").arg(number),
        };
        lines << shapes[size_t(i) % shapes.size()];
    }
    return lines;
}

class NoShell final : public DocumentShell
{
public:
    void setMenuVisible(QLatin1String, bool) override {}
    void setMenuEnabled(QLatin1String, bool) override {}
    void setToolButtonEnabled(QLatin1String, bool) override {}
    [[nodiscard]] QString statusText() const override { return {}; }
    void setStatusText(const QString &) override {}
    void SaveAs() override {}
    [[nodiscard]] QPrinter &printer() override { return onPrinter(); }
    void showItemMenu(const QPoint &) override {}

    std::function<QPrinter &()> onPrinter = []() -> QPrinter & { throw RuntimeError(RuntimeError::InvalidCall); };
};
