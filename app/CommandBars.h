#pragma once

#include <QHash>
#include <QLatin1String>

#include <functional>

class QAction;
class QMainWindow;
class QPoint;
class QToolBar;
class QWidget;

/// The menus and the toolbar of the main window, made from the tables of app/MainMenu.h.
class CommandBars final
{
public:
    using Command = std::function<void()>;

    /// @param commandOf the command behind a menu entry or a toolbar button; nothing for one that has none, which stays
    /// disabled
    CommandBars(QMainWindow &window, const std::function<Command(QLatin1String entry)> &commandOf);

    [[nodiscard]] QToolBar &toolBar() const { return *m_toolBar; }

    /// Has a menu entry with a check mark show and hide a bar.
    void setCheckEntry(QLatin1String name, QWidget &bar);

    /// Shows or hides a menu or a menu entry; a name that is not there is passed over.
    void setMenuVisible(QLatin1String name, bool isVisible);

    /// Enables or disables a menu entry, unless it has no command.
    void setMenuEnabled(QLatin1String name, bool isEnabled);

    /// Opens the entries of the Edit and Item menus as a menu of their own. @param position on the screen
    void showItemMenu(const QPoint &position);

    /// Enables or disables a toolbar button, unless it has no command.
    void setToolButtonEnabled(QLatin1String key, bool isEnabled);

private:
    void createMenus(const std::function<Command(QLatin1String)> &commandOf);
    void createToolBar(const std::function<Command(QLatin1String)> &commandOf);

    QMainWindow &m_window;
    QToolBar *m_toolBar = nullptr;
    QHash<QString, QAction *> m_menuActions;
    QHash<QString, QAction *> m_toolActions;
};
