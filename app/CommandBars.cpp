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

/// In device-independent pixels. The window as it comes first is as wide as all of the buttons.
constexpr int toolIconSize = 20;

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
    : m_window(window)
{
    createMenus(commandOf);
    createToolBar(commandOf);
}

void CommandBars::setCheckEntry(QLatin1String name, QWidget &bar)
{
    QAction *entry = m_menuActions.value(name);
    entry->setChecked(!bar.isHidden());
    entry->setEnabled(true);
    QObject::connect(entry, &QAction::toggled, &bar, &QWidget::setVisible);
    // The toolkit's own menu of bars hides one too.
    if (auto *toolBar = qobject_cast<QToolBar *>(&bar))
        QObject::connect(toolBar->toggleViewAction(), &QAction::triggered, entry, &QAction::setChecked);
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
    QMenu menu(&m_window);
    menu.setObjectName(QStringLiteral("mnuContext"));
    menu.addActions(m_menuActions.value(QStringLiteral("mnuEdit"))->menu()->actions());
    menu.addSeparator();
    menu.addActions(m_menuActions.value(QStringLiteral("mnuItem"))->menu()->actions());
    menu.exec(position);
}

void CommandBars::setToolButtonEnabled(QLatin1String key, bool isEnabled)
{
    QAction *action = m_toolActions.value(key);
    if (action && !action->data().isNull())
        action->setEnabled(isEnabled);
}

void CommandBars::createMenus(const std::function<Command(QLatin1String)> &commandOf)
{
    m_window.menuBar()->setObjectName(QStringLiteral("mnuMenuBar"));
    QHash<QString, QMenu *> menus;
    for (const MenuEntry &row : menuEntries) {
        QMenu *parent = menus.value(row.parent);
        QAction *action = nullptr;
        if (row.type == MenuEntry::Menu) {
            QMenu *menu = parent ? parent->addMenu(row.caption) : m_window.menuBar()->addMenu(row.caption);
            menu->setObjectName(row.name);
            menus.insert(row.name, menu);
            action = menu->menuAction();
        } else if (row.type == MenuEntry::Separator) {
            action = parent->addSeparator();
        } else {
            action = parent->addAction(row.caption);
            action->setCheckable(row.type == MenuEntry::Check);
            action->setVisible(!row.caption.isEmpty());
            if (!row.icon.isEmpty())
                action->setIcon(themedIcon(row.icon));
            if (!row.shortcuts.isEmpty())
                action->setShortcuts(QKeySequence::listFromString(row.shortcuts, QKeySequence::PortableText));
            connectCommand(*action, commandOf(row.name));
        }
        action->setObjectName(row.name);
        if (!row.name.isEmpty())
            m_menuActions.insert(row.name, action);
    }
    for (const QMenu *menu : menus)
        menu->menuAction()->setEnabled(!menu->isEmpty());
}

void CommandBars::createToolBar(const std::function<Command(QLatin1String)> &commandOf)
{
    m_toolBar = m_window.addToolBar(QMainWindow::tr("Toolbar"));
    m_toolBar->setObjectName(QStringLiteral("tbToolBar"));
    m_toolBar->setMovable(false);
    m_toolBar->setIconSize({toolIconSize, toolIconSize});
    for (const ToolButton &button : toolButtons) {
        if (button.key.isEmpty()) {
            m_toolBar->addSeparator();
            continue;
        }
        QAction *action = m_toolBar->addAction(themedIcon(button.icon), button.key);
        action->setObjectName(button.key);
        action->setToolTip(button.key);
        connectCommand(*action, commandOf(button.command));
        m_toolBar->widgetForAction(action)->setObjectName(button.key);
        m_toolActions.insert(button.key, action);
    }
}
