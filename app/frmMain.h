#pragma once

#include "app/CommandBars.h"
#include "app/CommonDialog.h"
#include "config/DocumentShell.h"

#include <QMainWindow>
#include <QStringList>

#include <memory>
#include <vector>

class AssociationCheck;
class ConfigForm;
class DocumentPreferences;
class EditorFactory;
class FileAccess;
class MainUtil;
class Messages;
class QMdiArea;
class QPrinter;
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
        EditorFactory &editors;
        const DocumentPreferences &preferences;
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
    [[nodiscard]] CommandBars::Command commandOf(QLatin1String entry);

    void setMenuVisible(QLatin1String name, bool isVisible) override;
    void setMenuEnabled(QLatin1String name, bool isEnabled) override;
    void setToolButtonEnabled(QLatin1String key, bool isEnabled) override;
    [[nodiscard]] QString statusText() const override;
    void setStatusText(const QString &text) override;

    void New();
    void Open();
    void Close();
    void Save();
    void SaveAs() override;
    [[nodiscard]] QPrinter &printer() override;
    void showItemMenu(const QPoint &position) override;
    void Exit();
    void ChangeFont();

    void placeWindow();
    void checkAssociation(const ProgramPathForm &programPath);

    [[nodiscard]] ConfigForm &createDocument();
    void showDocument(ConfigForm &document);
    void discardDocument(ConfigForm &document);
    void openDocument(const QString &path);
    void setActiveDocument(ConfigForm *document);
    void forgetDocument(ConfigForm *document);
    [[nodiscard]] bool queryCloseAll();

    Services m_services;
    QMdiArea *m_area;
    std::unique_ptr<MainUtil> m_util;
    CommandBars m_bars;
    CommonDialog m_dialog;
    /// Made when it is asked for: looking for printers takes time.
    std::unique_ptr<QPrinter> m_printer;

    std::vector<ConfigForm *> m_documents;
    ConfigForm *m_activeDocument = nullptr;
    int m_documentCount = 0;
};
