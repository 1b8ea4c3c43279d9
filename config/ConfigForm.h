#pragma once

#include "config/ConfigFile.h"
#include "config/ConfigParse.h"
#include "config/RowList.h"

#include <QWidget>

class ConfigListView;
class DocumentShell;
class FileAccess;
class FormOwner;
class Messages;
class QCheckBox;
class QComboBox;
class QPushButton;

/// One open configuration: a document window that shows the file as a list, one row a line, in file order. While it is
/// the active document it switches on the menus and buttons of the main window that belong to documents, and shows its
/// own status line.
class ConfigForm final : public QWidget
{
    Q_OBJECT

public:
    ConfigForm(FileAccess &files, Messages &messages, DocumentShell &shell, QWidget *parent = nullptr);

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
    void ParseLine(const QString &line, QString &prefix, QString &object, QString &flags) const;

    /// Lets the user choose the list's font.
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
    [[nodiscard]] const RowList &rowList() const { return m_rows; }

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
    void activateDocument();
    void deactivateDocument();

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
    void createControls();
    void layOutControls();
    QPushButton *createButton(QLatin1String name, const QString &caption, const QString &toolTip, QLatin1String icon);
    void measureRows();
    void showRowIndicator();

    Messages &m_messages;
    DocumentShell &m_shell;
    ConfigFile m_file;
    ConfigParse m_parser;
    RowList m_rows;

    ConfigListView *m_list = nullptr;
    QComboBox *m_newItemList = nullptr;
    QCheckBox *m_remoteConnectFlag = nullptr;

    QString m_caption;
    QString m_host;
    FormOwner *m_owner = nullptr;
    qint16 m_refreshOwner = 0;
    qint16 m_changed = 0;
    qint16 m_acceptMode = 0;
    QString m_savedMainStatus;
    QString m_ownStatus;
    bool m_isActive = false;
    bool m_isCloseAgreed = false;
};
