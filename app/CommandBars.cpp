#include "app/CommandBars.h"

#include "app/MainMenu.h"
#include "settings/Icons.h"

#include <QAction>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace {

void connectCommand(QAction &action, const CommandBars::Command &command)
{
    action.setEnabled(bool(command));
    // Tells an entry that is disabled for now from one that has no command.
    action.setData(command ? QVariant(true) : QVariant());
    if (command)
        QObject::connect(&action, &QAction::triggered, &action, command);
}

} // namespace

CommandBars::CommandBars(QMainWindow &window, const std::function<Command(QLatin1String)> &commandOf)
{
    createMenus(window, commandOf);
    createToolBar(window, commandOf);
}

void CommandBars::setMenuVisible(QLatin1String name, bool isVisible)
{
    if (QAction *action = m_menuActions.value(name))
        action->setVisible(isVisible);
}

void CommandBars::setMenuEnabled(QLatin1String name, bool isEnabled)
{
    QAction *action = m_menuActions.value(name);
    if (action && !action->data().isNull())
        action->setEnabled(isEnabled);
}

void CommandBars::showItemMenu(const QPoint &position)
{
    QMenu menu;
    menu.setObjectName(QStringLiteral("mnuContext"));
    menu.addActions(m_menuActions.value(QStringLiteral("mnuEdit"))->menu()->actions());
    menu.addSeparator();
    menu.addActions(m_menuActions.value(QStringLiteral("mnuItem"))->menu()->actions());
    menu.exec(position);
}

void CommandBars::setToolButtonEnabled(QLatin1String key, bool isEnabled)
{
    if (QAction *action = m_toolActions.value(key))
        action->setEnabled(isEnabled);
}

void CommandBars::createMenus(QMainWindow &window, const std::function<Command(QLatin1String)> &commandOf)
{
    window.menuBar()->setObjectName(QStringLiteral("mnuMenuBar"));
    QHash<QString, QMenu *> menus;
    for (const MenuEntry &entry : menuEntries) {
        QMenu *parent = menus.value(entry.parent);
        QAction *action = nullptr;
        if (entry.isMenu) {
            QMenu *menu = parent ? parent->addMenu(entry.caption) : window.menuBar()->addMenu(entry.caption);
            menu->setObjectName(entry.name);
            menus.insert(entry.name, menu);
            action = menu->menuAction();
        } else if (entry.caption.isEmpty()) {
            action = parent->addSeparator();
        } else {
            action = parent->addAction(entry.caption);
            if (!entry.icon.isEmpty())
                action->setIcon(themedIcon(entry.icon));
            action->setShortcuts(QKeySequence::listFromString(entry.shortcuts, QKeySequence::PortableText));
            connectCommand(*action, commandOf(entry.name));
        }
        action->setObjectName(entry.name);
        if (!entry.name.isEmpty())
            m_menuActions.insert(entry.name, action);
    }
}

void CommandBars::createToolBar(QMainWindow &window, const std::function<Command(QLatin1String)> &commandOf)
{
    QToolBar *bar = window.addToolBar(QMainWindow::tr("Toolbar"));
    bar->setObjectName(QStringLiteral("tbToolBar"));
    bar->setMovable(false);
    for (const ToolButton &button : toolButtons) {
        QAction *action = bar->addAction(themedIcon(button.icon), button.key);
        action->setObjectName(button.key);
        action->setToolTip(button.toolTip);
        connectCommand(*action, commandOf(button.command));
        bar->widgetForAction(action)->setObjectName(button.key);
        if (action->isEnabled())
            m_toolActions.insert(button.key, action);
    }
}
