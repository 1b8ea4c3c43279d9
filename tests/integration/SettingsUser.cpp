#include "app/Placement.h"
#include "platform/Platform.h"

#include <QCoreApplication>

/// SettingsUser NAME TIMES: stores the numbers from 1 to TIMES under NAME, each with a placement as the program does.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const Platform platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    for (int i = 1; i <= arguments.value(2).toInt(); ++i) {
        const bool isStored =
            platform.userSettings->SaveSetting(QStringLiteral("Test"), arguments.value(1), QString::number(i)) &&
            storePlacement(*platform.userSettings, {10, 20, 300, 400});
        if (!isStored)
            return 1;
    }
    return 0;
}
