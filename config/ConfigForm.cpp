#include "config/ConfigForm.h"

#include "config/ConfigLine.h"
#include "config/ConfigListView.h"
#include "config/DocumentShell.h"
#include "config/FormOwner.h"
#include "config/ItemKind.h"
#include "config/OverrideCursor.h"
#include "platform/Messages.h"
#include "settings/Icons.h"
#include "settings/RunReported.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFontDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <array>

namespace {

constexpr int progressInterval = 100;

/// What of the main window belongs to the active document: a name and whether it is shown or enabled while a document
/// is active. Everything that is shown or enabled here is taken back when the document is left, apart from the entries
/// of the Edit menu, which go with the menu.
struct ShellState
{
    QLatin1String name;
    bool isOn;
};

// clang-format off
constexpr std::array<ShellState, 9> menusWhenActive {{
    {QLatin1String("mnuItem"),             true},
    {QLatin1String("mnuFilePrint"),        true},
    {QLatin1String("mnuEdit"),             true},
    {QLatin1String("mnuEditUndo"),         true},
    {QLatin1String("mnuEditBar0"),         true},
    {QLatin1String("mnuEditCopy"),         true},
    {QLatin1String("mnuEditCut"),          true},
    {QLatin1String("mnuEditPaste"),        true},
    {QLatin1String("mnuEditPasteSpecial"), false},
}};

constexpr std::array<QLatin1String, 5> menusHiddenWhenLeft {
    QLatin1String("mnuItem"), QLatin1String("mnuFilePrint"),
    QLatin1String("mnuEdit"), QLatin1String("mnuEditUndo"), QLatin1String("mnuEditBar0"),
};

constexpr std::array<QLatin1String, 4> documentButtons {
    QLatin1String("Print"), QLatin1String("Copy"), QLatin1String("Cut"), QLatin1String("Paste"),
};
// clang-format on

} // namespace

ConfigForm::ConfigForm(FileAccess &files, Messages &messages, DocumentShell &shell, QWidget *parent)
    : QWidget(parent)
    , m_messages(messages)
    , m_shell(shell)
    , m_file(files, shell)
{
    setObjectName(QStringLiteral("ConfigForm"));
    setAttribute(Qt::WA_DeleteOnClose);
    createControls();
    layOutControls();
    setFocusProxy(m_list);
}

void ConfigForm::Form_Load_Data(qint16 mode, qint16 &result)
{
    const OverrideCursor cursor(Qt::BusyCursor);
    const QStringList lines = m_file.GetFile();
    for (qsizetype count = progressInterval; count <= lines.size(); count += progressInterval) {
        // What the status line shows while a file is loaded, and how it looks afterwards.
        m_shell.setStatusText(QStringLiteral("Line%1").arg(count));
        // The user's own input waits until the rows are there: a document must not be closed while it is being loaded.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    m_rows.setRows(lines);
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

void ConfigForm::ChangeFont()
{
    QFontDialog dialog(m_list->font(), this);
    dialog.setObjectName(QStringLiteral("FontDialog"));
    if (dialog.exec() == QDialog::Accepted)
        m_list->setRowFont(dialog.selectedFont());
}

void ConfigForm::setgHost(const QString &request)
{
    m_host = m_file.GetRemote(request);
    m_remoteConnectFlag->setVisible(!m_host.isEmpty());
    m_remoteConnectFlag->setEnabled(!m_host.isEmpty());
}

bool ConfigForm::isRemoteConnectRequested() const
{
    return m_remoteConnectFlag->isEnabled() && m_remoteConnectFlag->isChecked() && !m_host.isEmpty();
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

void ConfigForm::activateDocument()
{
    if (m_isActive)
        return;
    m_isActive = true;
    for (const ShellState &menu : menusWhenActive)
        m_shell.setMenuVisible(menu.name, menu.isOn);
    for (const QLatin1String key : documentButtons)
        m_shell.setToolButtonEnabled(key, true);
    m_savedMainStatus = m_shell.statusText();
    m_shell.setStatusText(m_ownStatus);
}

void ConfigForm::deactivateDocument()
{
    if (!m_isActive)
        return;
    m_isActive = false;
    for (const QLatin1String name : menusHiddenWhenLeft)
        m_shell.setMenuVisible(name, false);
    for (const QLatin1String key : documentButtons)
        m_shell.setToolButtonEnabled(key, false);
    m_ownStatus = m_shell.statusText();
    m_shell.setStatusText(m_savedMainStatus);
}

bool ConfigForm::queryClose()
{
    if (m_isCloseAgreed)
        return true;
    if (m_changed != 0) {
        switch (m_messages.ask(QStringLiteral("The configuration has changed. Save changes before closing?"),
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
    runReported(m_messages, [&] { isAgreed = queryClose(); });
    if (!isAgreed)
        return;
    deactivateDocument();
    emit closing();
    event->accept();
}

void ConfigForm::createControls()
{
    m_list = new ConfigListView(this);
    m_list->setObjectName(QStringLiteral("ConfigList"));
    m_list->setAccessibleName(tr("Configuration lines"));
    m_list->setModel(&m_rows);
    connect(m_list, &ConfigListView::rowFontChanged, this, &ConfigForm::measureRows);
    connect(m_list, &QListView::clicked, this, &ConfigForm::showRowIndicator);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &ConfigForm::showRowIndicator);

    m_newItemList = new QComboBox(this);
    m_newItemList->setObjectName(QStringLiteral("NewItemList"));
    for (const ItemKindRow &row : itemKinds)
        m_newItemList->addItem(row.displayName);
    m_newItemList->setMaxVisibleItems(m_newItemList->count());
    m_newItemList->setCurrentIndex(-1);
    m_newItemList->setToolTip(QStringLiteral("Select one of the following to add items of the selected type"));
    m_newItemList->setEnabled(false);

    m_remoteConnectFlag = new QCheckBox(tr("Remote connec&tion"), this);
    m_remoteConnectFlag->setObjectName(QStringLiteral("RemoteConnectFlag"));
    m_remoteConnectFlag->setEnabled(false);
    m_remoteConnectFlag->hide();
}

void ConfigForm::layOutControls()
{
    auto *newItemLabel = new QLabel(tr("&Add item:"), this);
    newItemLabel->setObjectName(QStringLiteral("lblNewItemList"));
    newItemLabel->setBuddy(m_newItemList);

    auto *remove =
        createButton(QLatin1String("RemoveButton"), tr("&Remove"),
                     QStringLiteral("Remove the selected item from the configuration"), QLatin1String("edit-delete"));
    auto *edit = createButton(QLatin1String("EditButton"), tr("E&dit"),
                              QStringLiteral("Edit the selected item. You can also double-click on an item to edit it"),
                              QLatin1String("edit"));
    auto *moveUp = createButton(QLatin1String("MoveUpButton"), tr("Move &up"), tr("Move the selected items up"),
                                QLatin1String("go-up"));
    auto *moveDown = createButton(QLatin1String("MoveDownButton"), tr("Move dow&n"), tr("Move the selected items down"),
                                  QLatin1String("go-down"));
    auto *apply = createButton(QLatin1String("ApplyButton"), tr("Appl&y"),
                               QStringLiteral("Save changes the the database"), QLatin1String("document-save"));
    auto *close =
        createButton(QLatin1String("CloseButton"), tr("&Close"),
                     QStringLiteral("Close configuration without saving changes"), QLatin1String("window-close"));
    for (QPushButton *withoutCommand : {remove, edit, moveUp, moveDown})
        withoutCommand->setEnabled(false);
    connect(apply, &QPushButton::clicked, this, [this] { runReported(m_messages, [this] { Form_Save_Data(); }); });
    connect(close, &QPushButton::clicked, this, &ConfigForm::closeRequested);

    auto *column = new QVBoxLayout;
    column->addWidget(newItemLabel);
    column->addWidget(m_newItemList);
    column->addSpacing(6);
    QWidget *previous = m_newItemList;
    for (QWidget *next :
         std::initializer_list<QWidget *>{edit, remove, moveUp, moveDown, m_remoteConnectFlag, apply, close}) {
        if (next == apply)
            column->addStretch();
        column->addWidget(next);
        setTabOrder(previous, next);
        previous = next;
    }

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addLayout(column);
}

QPushButton *ConfigForm::createButton(QLatin1String name, const QString &caption, const QString &toolTip,
                                      QLatin1String icon)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setIcon(themedIcon(icon));
    button->setAutoDefault(false);
    return button;
}

void ConfigForm::measureRows()
{
    m_list->setHorizontalExtent(m_list->widestRow(m_rows.rows()));
}

void ConfigForm::showRowIndicator()
{
    if (m_list->listIndex() >= 0)
        m_shell.setStatusText(QStringLiteral("Line %1/%2").arg(m_list->listIndex() + 1).arg(m_rows.rowCount()));
}
