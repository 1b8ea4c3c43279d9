#include "app/Application.h"

#include "settings/Icons.h"
#include "settings/RunReported.h"

QString Application::title()
{
    return QStringLiteral("ZentilConf");
}

Application::Application(int &argc, char **argv, Messages &messages)
    : QApplication(argc, argv)
    , m_messages(messages)
{
    setApplicationName(title());
    setDesktopFileName(QStringLiteral("zentilconf"));
    setWindowIcon(themedIcon(QLatin1String("zentilconf")));
    // The message of a file that cannot be opened at the start is a window too, and not the last one.
    setQuitOnLastWindowClosed(false);
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        reportCurrentError(m_messages);
        return false;
    }
}
