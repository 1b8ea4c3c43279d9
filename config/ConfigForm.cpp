#include "config/ConfigForm.h"

#include "config/ConfigLine.h"
#include "config/ConfigListView.h"
#include "config/DocumentShell.h"
#include "config/EditorFactory.h"
#include "config/FormOwner.h"
#include "config/ItemEditor.h"
#include "config/ItemKind.h"
#include "config/KindList.h"
#include "config/OverrideCursor.h"
#include "config/RowClipboard.h"
#include "platform/ByteText.h"
#include "platform/Messages.h"
#include "platform/RuntimeError.h"
#include "settings/DocumentPreferences.h"
#include "settings/RunReported.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>
#include <QPrinter>
#include <QPushButton>
#include <QTextEdit>

#include <algorithm>

namespace {

constexpr int progressInterval = 100;

/// Whether every item is edited as a line of text. Not so for a user who has no rights to the machine's settings:
/// reading one makes the key that it stands in, and documents are to be edited all the same.
bool isEditedAsLine(const DocumentPreferences &preferences)
{
    try {
        return preferences.Edit() == editAsLine;
    } catch (const RuntimeError &error) {
        if (error.number() == RuntimeError::RegistryError)
            return false;
        throw;
    }
}

/// The chosen font, where somebody has chosen one that this machine has, in a size that the font dialog gives.
QFont fontOf(const ListFont &chosen, const QFont &otherwise)
{
    QFont font = otherwise;
    if (chosen.family && QFontDatabase::hasFamily(*chosen.family))
        font.setFamilies({*chosen.family});
    constexpr int largestSize = 512;
    if (chosen.size && *chosen.size > 0 && *chosen.size <= largestSize)
        font.setPointSize(*chosen.size);
    return font;
}

} // namespace

ConfigForm::ConfigForm(const Services &services, QWidget *parent)
    : QWidget(parent)
    , m_services(services)
    , m_file(services.files, services.shell)
    , m_presence(services.shell)
    , m_changes(m_rows)
    , m_commands(m_rows, m_changes)
    , m_ui(*this)
{
    setObjectName(QStringLiteral("ConfigForm"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui.list->setModel(&m_rows);
    for (const ItemKindRow &row : itemKinds)
        m_ui.newItemList->setKindEnabled(row.kind, m_services.editors.hasEditor(row.kind));
    takePreferences();
    connectControls();
    setFocusProxy(m_ui.list);
}

ConfigForm::~ConfigForm()
{
    m_services.editors.closeEditorsOf(*this);
}

void ConfigForm::Form_Load_Data(qint16 mode, qint16 &result)
{
    const OverrideCursor cursor(Qt::BusyCursor);
    const QStringList lines = m_file.GetFile();
    for (qsizetype count = progressInterval; count <= lines.size(); count += progressInterval) {
        // What the status line shows while a file is loaded, and how it looks afterwards.
        m_services.shell.setStatusText(QStringLiteral("Line%1").arg(count));
        // The user's own input waits until the rows are there: a document must not be closed while it is being loaded.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    m_rows.setRows(lines);
    m_changes.forget();
    m_acceptMode = mode;
    setChanged(mode);
    measureRows();
    setCaption(m_file.Title());
    result = 1;
}

void ConfigForm::Form_Save_Data()
{
    const OverrideCursor cursor(Qt::WaitCursor);
    qint16 success = 0;
    m_file.SetFile(m_rows.text(), m_rows.rowCount(), success);
    if (success == 1)
        setChanged(0);
}

void ConfigForm::Reload()
{
    qint16 result = 0;
    Form_Load_Data(m_acceptMode, result);
}

void ConfigForm::ParseLine(const QString &line, QString &prefix, QString &object, QString &flags) const
{
    parseLine(line, ParseRule::Document, prefix, object, flags);
}

QString ConfigForm::TryRemoteConnect(const QString &drive) const
{
    return m_file.TryRemoteConnect(m_host, drive, {}, {});
}

void ConfigForm::ItemAddFile(const QString &object, const QString &prefix, const QString &flags)
{
    insertRows([&](const RowSelection &selection) {
        const FlagsSpace space = selection.current >= 0 ? FlagsSpace::Yes : FlagsSpace::No;
        return m_commands.insertLine(assembleLine(object, prefix, flags, space), selection);
    });
}

void ConfigForm::ItemChangeFile(const QString &object, const QString &prefix, const QString &flags, qint16 row)
{
    if (row < 0 || row >= m_rows.rowCount())
        throw RuntimeError(RuntimeError::InvalidCall, {}, tr("The line that was edited is not there any more."));
    change([&](const RowSelection &selection) {
        m_changes.replace(assembleLine(object, prefix, flags, FlagsSpace::Yes), row);
        return selection;
    });
}

void ConfigForm::changeRows(const std::function<void(RowChanges &)> &command)
{
    change([&](const RowSelection &) {
        const RowChanges::Group group(m_changes);
        command(m_changes);
        // Views move what is selected with the rows.
        return m_ui.list->rowSelection();
    });
}

QString ConfigForm::currentRowText() const
{
    const int row = m_ui.list->listIndex();
    return row < 0 ? QString() : m_rows.at(row);
}

void ConfigForm::AddNew(const QString &name)
{
    const auto row = std::find_if(itemKinds.begin(), itemKinds.end(),
                                  [&name](const ItemKindRow &each) { return each.displayName == name; });
    if (row != itemKinds.end())
        addItem(row->kind);
}

// clang-format off
void ConfigForm::Add_File()  { addItem(ItemKind::File); }
void ConfigForm::Add_Reg()   { addItem(ItemKind::Registry); }
void ConfigForm::Add_Other() { addItem(ItemKind::Other); }
void ConfigForm::Add_Misc()  { addItem(ItemKind::Line); }

void ConfigForm::Edit_File(qint16 row)   { editItem(ItemKind::File, row); }
void ConfigForm::Edit_Reg(qint16 row)    { editItem(ItemKind::Registry, row); }
void ConfigForm::Edit_User(qint16 row)   { editItem(ItemKind::User, row); }
void ConfigForm::Edit_Group(qint16 row)  { editItem(ItemKind::Group, row); }
void ConfigForm::Edit_LDAP(qint16 row)   { editItem(ItemKind::DirectoryService, row); }
void ConfigForm::Edit_Right(qint16 row)  { editItem(ItemKind::UserRight, row); }
void ConfigForm::Edit_Policy(qint16 row) { editItem(ItemKind::AccountPolicy, row); }
void ConfigForm::Edit_Audit(qint16 row)  { editItem(ItemKind::AuditPolicy, row); }
void ConfigForm::Edit_Other(qint16 row)  { editItem(ItemKind::Other, row); }
void ConfigForm::Edit_Misc(qint16 row)   { editItem(ItemKind::Line, row); }
// clang-format on

void ConfigForm::Edit_Template(ItemEditor &editor, qint16 row)
{
    const int edited = row == -1 ? m_ui.list->listIndex() : row;
    if (edited < 0 || edited >= m_rows.rowCount())
        return;
    prepareEditor(editor);
    editor.setWindowAddFlag(false);
    editor.setOKButtonCaption(QStringLiteral("Apply"));
    editor.setWindowAddItem(static_cast<qint16>(edited));
    editor.Show();
    editor.SetItem(m_rows.at(edited));
}

void ConfigForm::editCurrentRow()
{
    if (!requireCurrentRow())
        return;
    const bool isLine = isEditedAsLine(m_services.preferences);
    editItem(isLine ? ItemKind::Line : GetItemType(m_rows.at(m_ui.list->listIndex())), -1);
}

void ConfigForm::Remove_Other()
{
    if (!requireCurrentRow() || m_ui.list->rowSelection().rows.empty())
        return;
    change([this](const RowSelection &selection) { return m_commands.removeSelected(selection); });
}

void ConfigForm::moveUp()
{
    move(&RowCommands::moveUp, m_commands.mayMoveUp(m_ui.list->rowSelection()),
         QStringLiteral("Cannot shift up first row."));
}

void ConfigForm::moveDown()
{
    move(&RowCommands::moveDown, m_commands.mayMoveDown(m_ui.list->rowSelection()),
         QStringLiteral("Cannot shift down last row."));
}

void ConfigForm::mnuItemTextComment_Click()
{
    if (m_ui.list->rowSelection().rows.empty())
        return;
    change([this](const RowSelection &selection) {
        m_commands.toggleComments(selection);
        return selection;
    });
}

void ConfigForm::mnuEditUndo_Click()
{
    if (!m_changes.canUndo()) {
        m_services.messages.show(QStringLiteral("Cannot undo"));
        return;
    }
    change([this](const RowSelection &selection) {
        const int current = m_changes.undo(selection.current);
        return current < 0 ? RowSelection() : RowSelection{{current}, current};
    });
    m_presence.setUndoEnabled(m_changes.canUndo());
}

QString ConfigForm::GetSelection() const
{
    return m_commands.selectedText(m_ui.list->rowSelection());
}

void ConfigForm::mnuEditCopy_Click()
{
    // Nothing is selected: the clipboard keeps what it has.
    if (!m_ui.list->rowSelection().rows.empty())
        RowClipboard::put(GetSelection());
}

void ConfigForm::mnuEditCut_Click()
{
    mnuEditCopy_Click();
    Remove_Other();
}

void ConfigForm::mnuEditPaste_Click()
{
    const QString text = RowClipboard::text();
    if (text.isEmpty())
        return;
    insertRows([&](const RowSelection &selection) { return m_commands.insertUnrecorded(rowsOfText(text), selection); });
}

void ConfigForm::PrintOut()
{
    const OverrideCursor cursor(Qt::WaitCursor);
    if (!m_printBox) {
        m_printBox = new QTextEdit(this);
        m_printBox->setObjectName(QStringLiteral("PrintBox"));
        m_printBox->hide();
    }
    m_printBox->setFontFamily(QStringLiteral("Courier"));
    m_printBox->setPlainText(shownText(m_rows.rows().join(QStringLiteral("\r\n"))));
    m_printBox->print(&m_services.shell.printer());
}

void ConfigForm::ChangeFont()
{
    QFontDialog dialog(m_ui.list->font(), this);
    dialog.setObjectName(QStringLiteral("FontDialog"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QFont chosen = dialog.selectedFont();
    m_ui.list->setRowFont(chosen);
    // A font that was made for the screen may have its size in pixels alone.
    const int size = chosen.pointSize() > 0 ? chosen.pointSize() : QFontInfo(chosen).pointSize();
    m_services.preferences.storeListFont(chosen.family(), static_cast<qint16>(size));
}

void ConfigForm::setgHost(const QString &request)
{
    m_host = m_file.GetRemote(request);
    m_ui.remoteConnectFlag->setVisible(!m_host.isEmpty());
    m_ui.remoteConnectFlag->setEnabled(!m_host.isEmpty());
}

bool ConfigForm::isRemoteConnectRequested() const
{
    return m_ui.remoteConnectFlag->isEnabled() && m_ui.remoteConnectFlag->isChecked() && !m_host.isEmpty();
}

void ConfigForm::setChanged(qint16 changed)
{
    m_changed = changed;
    emit changedFlagChanged();
}

void ConfigForm::setCaption(const QString &caption)
{
    m_caption = caption;
    // In a window title "[*]" stands for a mark of unsaved changes; doubled, it stands for itself.
    setWindowTitle(QString(caption).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void ConfigForm::setOwner(FormOwner *owner, qint16 refresh)
{
    m_owner = owner;
    m_refreshOwner = refresh;
}

bool ConfigForm::queryClose()
{
    if (m_isCloseAgreed)
        return true;
    if (m_changed != 0) {
        switch (m_services.messages.ask(QStringLiteral("The configuration has changed. Save changes before closing?"),
                                        Messages::Buttons::YesNoCancel)) {
        case Messages::Answer::Yes:
            Form_Save_Data();
            break;
        case Messages::Answer::No:
            break;
        case Messages::Answer::Cancel:
            return false;
        }
    }
    if (m_owner && m_refreshOwner != 0)
        m_owner->Form_Load();
    m_isCloseAgreed = true;
    return true;
}

void ConfigForm::closeEvent(QCloseEvent *event)
{
    // Refused until everything has gone well: an error while saving must not close the window.
    event->ignore();
    bool isAgreed = false;
    runReported(m_services.messages, [&] { isAgreed = queryClose(); });
    if (!isAgreed)
        return;
    m_presence.leave();
    emit closing();
    event->accept();
}

void ConfigForm::connectControls()
{
    const auto run = [this](void (ConfigForm::*command)()) {
        return [this, command] { runReported(m_services.messages, [&] { (this->*command)(); }); };
    };
    connect(m_ui.list, &ConfigListView::rowFontChanged, this, &ConfigForm::measureRows);
    connect(m_ui.list, &QListView::clicked, this, &ConfigForm::showRowIndicator);
    connect(m_ui.list, &QListView::doubleClicked, this, run(&ConfigForm::editCurrentRow));
    connect(m_ui.list, &ConfigListView::editRequested, this, run(&ConfigForm::editCurrentRow));
    connect(m_ui.list, &ConfigListView::removeRequested, this, run(&ConfigForm::Remove_Other));
    connect(m_ui.list, &ConfigListView::menuRequested, this,
            [this](const QPoint &position) { m_services.shell.showItemMenu(position); });
    connect(m_ui.list->selectionModel(), &QItemSelectionModel::currentChanged, this, &ConfigForm::showRowIndicator);
    connect(m_ui.newItemList, &KindList::chosen, this,
            [this](const QString &name) { runReported(m_services.messages, [&] { AddNew(name); }); });
    connect(m_ui.edit, &QPushButton::clicked, this, run(&ConfigForm::editCurrentRow));
    connect(m_ui.remove, &QPushButton::clicked, this, run(&ConfigForm::Remove_Other));
    connect(m_ui.moveUp, &QPushButton::clicked, this, run(&ConfigForm::moveUp));
    connect(m_ui.moveDown, &QPushButton::clicked, this, run(&ConfigForm::moveDown));
    connect(m_ui.apply, &QPushButton::clicked, this, run(&ConfigForm::Form_Save_Data));
    connect(m_ui.close, &QPushButton::clicked, this, &ConfigForm::closeRequested);
}

void ConfigForm::takePreferences()
{
    // A setting that cannot be read keeps nobody from opening a document, which then is as if there were none.
    const auto takeIfReadable = [](const auto &take) {
        try {
            take();
        } catch (const RuntimeError &) {
            return;
        }
    };
    takeIfReadable([this] { m_ui.remoteConnectFlag->setChecked(m_services.preferences.remote() != 0); });
    takeIfReadable([this] {
        const QFont font = fontOf(m_services.preferences.listFont(), m_ui.list->font());
        if (font != m_ui.list->font())
            m_ui.list->setRowFont(font);
    });
}

void ConfigForm::measureRows()
{
    m_ui.list->setHorizontalExtent(m_ui.list->widestRow(m_rows.rows()));
}

void ConfigForm::showRowIndicator()
{
    if (m_ui.list->listIndex() >= 0)
        m_presence.showStatus(QStringLiteral("Line %1/%2").arg(m_ui.list->listIndex() + 1).arg(m_rows.rowCount()));
}

void ConfigForm::addItem(ItemKind kind)
{
    if (!m_services.editors.hasEditor(kind))
        return;
    ItemEditor &editor = m_services.editors.newEditor(kind);
    prepareEditor(editor);
    editor.setWindowAddFlag(true);
    editor.setOKButtonCaption(QStringLiteral("Add"));
    editor.SetDefaultItem();
    editor.Show();
}

void ConfigForm::editItem(ItemKind kind, qint16 row)
{
    if ((row == -1 && !requireCurrentRow()) || !m_services.editors.hasEditor(kind))
        return;
    Edit_Template(m_services.editors.sharedEditor(kind), row);
}

void ConfigForm::prepareEditor(ItemEditor &editor)
{
    editor.setWindowToAffect(*this);
    editor.setHost(m_host);
    editor.setRemoteFlag(isRemoteConnectRequested());
}

bool ConfigForm::requireCurrentRow()
{
    if (m_ui.list->listIndex() >= 0)
        return true;
    m_services.messages.show(QStringLiteral("No item selected"), Messages::Icon::None, QStringLiteral("Error"));
    return false;
}

void ConfigForm::change(const RowCommand &command)
{
    const RowSelection before = m_ui.list->rowSelection();
    m_ui.list->setRowSelection(command(before));
    setChanged(-1);
    if (m_changes.canUndo())
        m_presence.setUndoEnabled(true);
    measureRows();
    showRowIndicator();
    // The row that the status line tells of is gone, and no other has come in its place.
    if (before.current >= 0 && m_ui.list->listIndex() < 0)
        m_presence.showStatus({});
}

void ConfigForm::insertRows(const RowCommand &command)
{
    change(command);
    // They are behind the last row then, and nothing else would tell the user that they are there.
    if (m_ui.list->listIndex() < 0)
        m_ui.list->scrollToBottom();
}

void ConfigForm::move(RowSelection (RowCommands::*command)(const RowSelection &), bool mayMove, const QString &refusal)
{
    if (!mayMove) {
        m_services.messages.show(refusal);
        return;
    }
    if (m_ui.list->rowSelection().rows.empty())
        return;
    change([this, command](const RowSelection &selection) { return (m_commands.*command)(selection); });
}
