#pragma once

#include "config/DocumentShell.h"

#include <QHash>
#include <QMainWindow>

#include <memory>
#include <vector>

class AssociationCheck;
class ConfigForm;
class FileAccess;
class MainUtil;
class Messages;
class QFileDialog;
class QMdiArea;
class QMdiSubWindow;
class UserSettings;
struct ProgramPathForm;

/// The main window: it owns the document windows, opens, saves and closes them, and remembers its place.
class frmMain final : public QMainWindow, private DocumentShell
{
    Q_OBJECT

public:
    /// What the main window uses and somebody else owns.
    struct Services
    {
        FileAccess &files;
        UserSettings &userSettings;
        Messages &messages;
        AssociationCheck &associations;
    };

    /// Places the window as it stood last time and, unless "IgnoreAssoc" is set, has the association of configuration
    /// files checked.
    /// @param programPath how the system writes the path of a program
    frmMain(const Services &services, const ProgramPathForm &programPath);
    ~frmMain() override;

    /// Opens one file in a new document window. When that fails, no window is left behind.
    /// @throws RuntimeError as ConfigForm::Form_Load_Data() does
    void Load(const QString &path);

    /// Opens files in order, those that are not there too; each error is shown, and the next file is opened.
    void LoadAll(const QStringList &paths);

    /// The active document; nullptr when there is none. It stays active while another window of the program is used.
    [[nodiscard]] ConfigForm *activeDocument() const { return m_activeDocument; }

    /// All documents, oldest first.
    [[nodiscard]] const std::vector<ConfigForm *> &documents() const { return m_documents; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct Command
    {
        QLatin1String entry;
        void (frmMain::*run)();
    };
    static const std::vector<Command> &commands();

    void setMenuVisible(QLatin1String name, bool isVisible) override;
    void setToolButtonEnabled(QLatin1String key, bool isEnabled) override;
    [[nodiscard]] QString statusText() const override;
    void setStatusText(const QString &text) override;

    void New();
    void Open();
    void Close();
    void Save();
    void SaveAs() override;
    void Exit();
    void ChangeFont();

    void createMenus();
    void createToolBar();
    void connectCommand(QAction &action, QLatin1String entry);
    void placeWindow();
    void checkAssociation(const ProgramPathForm &programPath);

    [[nodiscard]] ConfigForm &createDocument();
    void showDocument(ConfigForm &document);
    void discardDocument(ConfigForm &document);
    void openDocument(const QString &path);
    void setActiveDocument(ConfigForm *document);
    void forgetDocument(ConfigForm *document);
    [[nodiscard]] bool queryCloseAll();
    [[nodiscard]] QString chooseFile(const QString &title, bool isForSaving, const QString &proposal);

    Services m_services;
    QMdiArea *m_area;
    std::unique_ptr<MainUtil> m_util;
    QHash<QString, QAction *> m_menuActions;
    QHash<QString, QAction *> m_toolActions;

    std::vector<ConfigForm *> m_documents;
    ConfigForm *m_activeDocument = nullptr;
    int m_documentCount = 0;
    QString m_dialogFile;
};
