#pragma once

#include "config/ConfigFile.h"
#include "config/ConfigFormUi.h"
#include "config/ConfigParse.h"
#include "config/ItemDocument.h"
#include "config/RowChanges.h"
#include "config/RowCommands.h"
#include "config/RowList.h"
#include "config/SettingsDocument.h"
#include "config/ShellPresence.h"

#include <QWidget>

#include <functional>

class DocumentPreferences;
class DocumentShell;
class EditorFactory;
class FileAccess;
class FormOwner;
class ItemEditor;
class Messages;
class QTextEdit;
enum class ItemKind : int;

/// One open configuration: a document window that shows the file as a list, one row a line, in file order. While it is
/// the active document it switches on the menus and buttons of the main window that belong to documents, and shows its
/// own status line.
class ConfigForm final : public QWidget, public ItemDocument, public SettingsDocument
{
    Q_OBJECT

public:
    /// What a document uses and somebody else owns.
    struct Services
    {
        FileAccess &files;
        Messages &messages;
        DocumentShell &shell;
        EditorFactory &editors;
        DocumentPreferences &preferences;
    };

    explicit ConfigForm(const Services &services, QWidget *parent = nullptr);
    ~ConfigForm() override;

    /// Loads the rows from the file. When that fails, the document stays as it was.
    /// @param mode becomes AcceptMode and the changed flag; 0 leaves the document unchanged
    /// @param result 1 when the rows are loaded
    /// @throws RuntimeError as ConfigFile::GetFile() does
    void Form_Load_Data(qint16 mode, qint16 &result);

    /// Writes the rows to the file and clears the changed flag. @throws RuntimeError as ConfigFile::SetFile() does
    void Form_Save_Data();

    /// Loads the rows again, with the current AcceptMode. @throws RuntimeError as Form_Load_Data() does
    void Reload();

    /// As parseLine() with ParseRule::Document.
    void ParseLine(const QString &line, QString &prefix, QString &object, QString &flags) const override;

    /// As ConfigFile::TryRemoteConnect() for this document's host.
    [[nodiscard]] QString TryRemoteConnect(const QString &drive) const override;

    void ItemAddFile(const QString &object, const QString &prefix, const QString &flags) override;
    void ItemChangeFile(const QString &object, const QString &prefix, const QString &flags, qint16 row) override;

    /// Opens the editor for a new item. @param name the display name of its kind, exactly; any other does nothing
    void AddNew(const QString &name);
    void Add_File();
    void Add_Reg();
    void Add_Other();
    void Add_Misc();

    /// Opens the editor of a kind for a row, whatever the row's own kind is.
    /// @param row -1: the current row; when there is none, the user is told
    void Edit_File(qint16 row = -1);
    void Edit_Reg(qint16 row = -1);
    void Edit_User(qint16 row = -1);
    void Edit_Group(qint16 row = -1);
    void Edit_LDAP(qint16 row = -1);
    void Edit_Right(qint16 row = -1);
    void Edit_Policy(qint16 row = -1);
    void Edit_Audit(qint16 row = -1);
    void Edit_Other(qint16 row = -1);
    void Edit_Misc(qint16 row = -1);

    /// Shows a row in an editor. @param row -1: the current row; when there is none, nothing happens
    /// @throws RuntimeError as ItemEditor::SetItem() does
    void Edit_Template(ItemEditor &editor, qint16 row);

    /// The edit command: opens the current row in the editor for its kind, or as a line of text where that is the
    /// default. @throws RuntimeError as Edit_Template() and DocumentPreferences::Edit() do
    void editCurrentRow();

    /// Removes the selected rows, in one undo step.
    void Remove_Other();

    /// Moves the selected rows by one, in one undo step.
    void moveUp();
    void moveDown();

    /// Puts ";" in front of each selected row, or takes it away, in one undo step.
    void mnuItemTextComment_Click();

    /// Takes back the newest undo step. @throws RuntimeError Overflow when the rows that come back do not fit
    void mnuEditUndo_Click();

    /// The selected rows, joined with CR LF.
    [[nodiscard]] QString GetSelection() const;

    void mnuEditCopy_Click();
    void mnuEditCut_Click();

    /// Inserts the clipboard's text above the current row, or at the end when no row is current. It cannot be undone.
    /// @throws RuntimeError Overflow when the rows do not fit; the document is as it was then
    void mnuEditPaste_Click();

    /// Prints all rows on the printer of the main window.
    void PrintOut();

    /// Lets the user choose the list's font, which the lists of new documents have from then on.
    /// @throws RuntimeError as DocumentPreferences::storeListFont() does; this list has the font then
    void ChangeFont();

    [[nodiscard]] qint16 AcceptMode() const { return m_acceptMode; }
    void setAcceptMode(qint16 mode) { m_acceptMode = mode; }

    /// The remote host; empty for a local file. Giving one asks the file for the host that this means and, when there
    /// is one, shows RemoteConnectFlag.
    [[nodiscard]] const QString &gHost() const { return m_host; }
    void setgHost(const QString &request);

    /// True when the user wants this document's objects looked for on the remote host.
    [[nodiscard]] bool isRemoteConnectRequested() const;

    [[nodiscard]] ConfigFile &file() { return m_file; }
    [[nodiscard]] const RowList &rowList() const override { return m_rows; }
    void changeRows(const std::function<void(RowChanges &)> &command) override;
    [[nodiscard]] QString currentRowText() const override;

    /// 0, or -1 (or a load's mode) when the rows differ from the file.
    [[nodiscard]] qint16 changed() const { return m_changed; }
    void setChanged(qint16 changed);

    /// The window's title: the file's path, or "Document" and a number. It is the only record of whether the document
    /// has a file.
    [[nodiscard]] const QString &caption() const { return m_caption; }
    void setCaption(const QString &caption);

    /// Records a form to refresh when this document closes. @param refresh non-zero: call its Form_Load
    void setOwner(FormOwner *owner, qint16 refresh);

    /// The document becomes the active one, or stops being it.
    void activateDocument() { m_presence.enter(); }
    void deactivateDocument() { m_presence.leave(); }

    /// Asks about unsaved changes and tells the owner. Once it has returned true, closing asks no more.
    /// @return false when the window is to stay open
    /// @throws RuntimeError when saving fails
    [[nodiscard]] bool queryClose();

    /// Takes back what queryClose() agreed to, when another document's answer keeps everything open.
    void forgetCloseAgreed() { m_isCloseAgreed = false; }

signals:
    void changedFlagChanged();
    void closing();
    /// The document's own close button was pressed.
    void closeRequested();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void connectControls();
    void takePreferences();
    void measureRows();
    void showRowIndicator();

    void addItem(ItemKind kind);
    void editItem(ItemKind kind, qint16 row);
    void prepareEditor(ItemEditor &editor);
    [[nodiscard]] bool requireCurrentRow();
    using RowCommand = std::function<RowSelection(const RowSelection &)>;
    void change(const RowCommand &command);
    void insertRows(const RowCommand &command);
    void move(RowSelection (RowCommands::*command)(const RowSelection &), bool mayMove, const QString &refusal);

    Services m_services;
    ConfigFile m_file;
    ShellPresence m_presence;
    ConfigParse m_parser;
    RowList m_rows;
    RowChanges m_changes;
    RowCommands m_commands;

    ConfigFormUi m_ui;
    /// Made when something is printed.
    QTextEdit *m_printBox = nullptr;

    QString m_caption;
    QString m_host;
    FormOwner *m_owner = nullptr;
    qint16 m_refreshOwner = 0;
    qint16 m_changed = 0;
    qint16 m_acceptMode = 0;
    bool m_isCloseAgreed = false;
};
