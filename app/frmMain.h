#pragma once

#include "app/CommandBars.h"
#include "app/CommonDialog.h"
#include "app/PrintDialogs.h"
#include "config/DocumentShell.h"
#include "platform/Platform.h"

#include <QMainWindow>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

class AssociationCheck;
class ConfigForm;
class DocumentArea;
class DocumentPreferences;
class EditorFactory;
class FileAccess;
class GlobalSettingsEditor;
class Help;
class MainUtil;
class Messages;
class UserSettings;

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
        EditorFactory &editors;
        DocumentPreferences &preferences;
        /// What the program may be without; the menu entries that need it are disabled then.
        AssociationCheck *associations = nullptr;
        GlobalSettingsEditor *globalSettings = nullptr;
        Help *help = nullptr;
        std::function<void(QWidget &parent)> showOptions = {};
        std::function<void(QWidget &parent)> showAbout = {};
    };

    /// Places the window as it stood last time and, unless "IgnoreAssoc" is set, has the association of configuration
    /// files checked.
    /// @param programPath how the system writes the path of a program
    frmMain(const Services &services, const ProgramPathForm &programPath);
    ~frmMain() override;

    /// Opens one file in a new document window. One that is not there is reported. When the file cannot be opened, no
    /// window is left behind.
    /// @throws RuntimeError as ConfigForm::Form_Load_Data() does
    void Load(const QString &path);

    /// Opens files in order; each error is shown, and the next file is opened.
    void LoadAll(const QStringList &paths);

    /// The active document; nullptr when there is none. It stays active while another window of the program is used.
    [[nodiscard]] ConfigForm *activeDocument() const;

    /// All documents, oldest first.
    [[nodiscard]] const std::vector<ConfigForm *> &documents() const;

    /// Closes the window as the user does, with its questions, once no dialog is open any more: its answer may still be
    /// on its way to a document.
    void closeOnRequest();

    /// Asks about each changed document, as before closing, and closes nothing: the session that is about to end may go
    /// on after all. @return false when it is not to end
    [[nodiscard]] bool queryEndOfSession();

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct OwnCommand;

    [[nodiscard]] CommandBars::Command commandOf(QLatin1String entry);
    [[nodiscard]] std::function<void()> operationOf(QLatin1String entry);

    void setMenuVisible(QLatin1String name, bool isVisible) override;
    void setMenuEnabled(QLatin1String name, bool isEnabled) override;
    void setToolButtonEnabled(QLatin1String key, bool isEnabled) override;
    [[nodiscard]] QString statusText() const override;
    void setStatusText(const QString &text) override;
    [[nodiscard]] QPrinter &printer() override;
    void showItemMenu(const QPoint &position) override;

    void Open();
    void Save();
    void SaveAs() override;
    void PageSetup();
    void Print();
    void Exit();
    void RunConfWizard();
    void ShowOptions();
    void HelpContents();
    void SearchForHelp();
    void ShowAbout();

    void placeWindow();
    void checkAssociation();

    Services m_services;
    ProgramPathForm m_programPath;
    DocumentArea *m_area;
    std::unique_ptr<MainUtil> m_util;
    CommandBars m_bars;
    CommonDialog m_dialog;
    PrintDialogs m_printDialogs;
    bool m_isCloseRequested = false;
};
