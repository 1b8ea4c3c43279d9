#include "tests/app/ProgramFixture.h"

#include <QAction>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QUrl>
#include <QWindow>

void Program::settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

Qt::DropAction Program::drop(const QMimeData &data, const QWidget &onto, Qt::DropActions possible)
{
    const QPoint place = onto.mapTo(window.get(), onto.rect().center());
    QDragEnterEvent enter(place, possible, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window->windowHandle(), &enter);
    if (!enter.isAccepted())
        return Qt::IgnoreAction;
    QDropEvent dropEvent(place, possible, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window->windowHandle(), &dropEvent);
    settle();
    // The other program does not wait for what becomes of the files.
    const Qt::DropAction action = dropEvent.isAccepted() ? dropEvent.dropAction() : Qt::IgnoreAction;
    settle();
    return action;
}

Qt::DropAction Program::drop(const QStringList &paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls << QUrl::fromLocalFile(path);
    data.setUrls(urls);
    return drop(data, *window->centralWidget());
}

QString Program::status() const
{
    return control<QLabel>(*window, "sbStatusBarPanel1")->text();
}

bool Program::isMenuVisible(const char *entry) const
{
    return control<QAction>(*window, entry)->isVisible();
}

QString ProgramOnFiles::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(at(name));
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    EXPECT_TRUE(isWritten) << file.errorString().toStdString();
    return file.fileName();
}

QByteArray ProgramOnFiles::bytesOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}
