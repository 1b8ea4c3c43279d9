#include "app/frmMain.h"

#include "app/MainMenu.h"
#include "app/MainUtil.h"
#include "app/Placement.h"
#include "app/RunReported.h"
#include "config/ConfigForm.h"
#include "platform/FileAccess.h"
#include "platform/Messages.h"
#include "platform/Platform.h"
#include "settings/AssociationCheck.h"
#include "settings/Icons.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QScopeGuard>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

#include <algorithm>

namespace {

const QLatin1String untitledStart("Document");

ConfigForm *documentIn(const QMdiSubWindow *window)
{
    return window ? qobject_cast<ConfigForm *>(window->widget()) : nullptr;
}

QMdiSubWindow *windowOf(const ConfigForm &document)
{
    return qobject_cast<QMdiSubWindow *>(document.parentWidget());
}

QStringList localFiles(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }
    return paths;
}

QIcon documentIcon(const ConfigForm &document)
{
    return themedIcon(QLatin1String(document.changed() ? "document-modified" : "document"));
}

} // namespace

frmMain::frmMain(const Services &services, const ProgramPathForm &programPath)
    : m_services(services)
    , m_area(new QMdiArea(this))
    , m_util(std::make_unique<MainUtil>(*statusBar()))
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QCoreApplication::applicationName());
    setAcceptDrops(true);
    statusBar()->setObjectName(QStringLiteral("sbStatusBar"));
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_area);
    connect(m_area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *window) {
        // No window of the area is active either while another window of the program is in front; the document then
        // stays the active one.
        if (ConfigForm *document = documentIn(window))
            setActiveDocument(document);
    });

    createMenus();
    createToolBar();
    placeWindow();
    setMenuVisible(QLatin1String("mnuItem"), false);
    setMenuVisible(QLatin1String("mnuEdit"), false);
    setMenuVisible(QLatin1String("mnuFilePrint"), false);
    checkAssociation(programPath);
}

frmMain::~frmMain()
{
    for (ConfigForm *document : m_documents)
        document->disconnect(this);
}

void frmMain::Load(const QString &path)
{
    if (!m_services.files.fileExists(path)) {
        m_services.messages.show(QStringLiteral("File %1 not found").arg(path), Messages::Icon::Exclamation);
        return;
    }
    openDocument(path);
}

void frmMain::LoadAll(const QStringList &paths)
{
    for (const QString &path : paths)
        runReported(m_services.messages, [&] { Load(path); });
}

void frmMain::closeEvent(QCloseEvent *event)
{
    // Refused until everything has gone well: an error while saving must not close the window.
    event->ignore();
    if (!queryCloseAll())
        return;
    const std::vector<ConfigForm *> agreed = m_documents;
    for (const ConfigForm *document : agreed)
        windowOf(*document)->close();
    if (!isMinimized() && !storePlacement(m_services.userSettings, {pos(), size()}))
        m_services.messages.show(tr("The place of the window cannot be stored."), Messages::Icon::Exclamation);
    event->accept();
    QCoreApplication::quit();
}

void frmMain::dragEnterEvent(QDragEnterEvent *event)
{
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    for (const QString &path : localFiles(*event->mimeData()))
        runReported(m_services.messages, [&] { openDocument(path); });
}

const std::vector<frmMain::Command> &frmMain::commands()
{
    // clang-format off
    static const std::vector<Command> table {
        {QLatin1String("mnuFileNew"),    &frmMain::New},
        {QLatin1String("mnuFileOpen"),   &frmMain::Open},
        {QLatin1String("mnuFileClose"),  &frmMain::Close},
        {QLatin1String("mnuFileSave"),   &frmMain::Save},
        {QLatin1String("mnuFileSaveAs"), &frmMain::SaveAs},
        {QLatin1String("mnuFileExit"),   &frmMain::Exit},
        {QLatin1String("mnuWindowFont"), &frmMain::ChangeFont},
    };
    // clang-format on
    return table;
}

void frmMain::setMenuVisible(QLatin1String name, bool isVisible)
{
    if (QAction *action = m_menuActions.value(name))
        action->setVisible(isVisible);
}

void frmMain::setToolButtonEnabled(QLatin1String key, bool isEnabled)
{
    if (QAction *action = m_toolActions.value(key))
        action->setEnabled(isEnabled);
}

QString frmMain::statusText() const
{
    return m_util->status();
}

void frmMain::setStatusText(const QString &text)
{
    m_util->setStatus(text);
}

void frmMain::New()
{
    showDocument(createDocument());
}

void frmMain::Open()
{
    const QString path = chooseFile(QStringLiteral("Open"), false, m_dialogFile);
    if (!path.isEmpty())
        Load(path);
}

void frmMain::Close()
{
    if (m_activeDocument)
        windowOf(*m_activeDocument)->close();
}

void frmMain::Save()
{
    if (!m_activeDocument) {
        m_services.messages.show(QStringLiteral("No window is selected. Please select the window to Save"),
                                 Messages::Icon::Exclamation);
        return;
    }
    // A file whose path begins like this counts as untitled too, as it always has.
    if (m_activeDocument->caption().startsWith(untitledStart))
        SaveAs();
    else
        m_activeDocument->Form_Save_Data();
}

void frmMain::SaveAs()
{
    if (!m_activeDocument)
        return;
    ConfigForm &document = *m_activeDocument;
    const QString path = chooseFile(QStringLiteral("Save As"), true, document.caption());
    if (path.isEmpty())
        return;
    auto keepPath = qScopeGuard([&document, before = document.file().path()] { document.file().SetInfo(before); });
    document.file().SetInfo(path);
    document.Form_Save_Data();
    keepPath.dismiss();
    document.setCaption(path);
}

void frmMain::Exit()
{
    close();
}

void frmMain::ChangeFont()
{
    if (m_activeDocument)
        m_activeDocument->ChangeFont();
}

void frmMain::createMenus()
{
    QHash<QString, QMenu *> menus;
    for (const MenuEntry &entry : menuEntries) {
        QMenu *parent = menus.value(entry.parent);
        QAction *action = nullptr;
        if (entry.isMenu) {
            QMenu *menu = parent ? parent->addMenu(entry.caption) : menuBar()->addMenu(entry.caption);
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
            connectCommand(*action, entry.name);
        }
        action->setObjectName(entry.name);
        m_menuActions.insert(entry.name, action);
    }
}

void frmMain::createToolBar()
{
    QToolBar *bar = addToolBar(tr("Toolbar"));
    bar->setObjectName(QStringLiteral("tbToolBar"));
    bar->setMovable(false);
    for (const ToolButton &button : toolButtons) {
        QAction *action = bar->addAction(themedIcon(button.icon), button.key);
        action->setObjectName(button.key);
        action->setToolTip(button.toolTip);
        connectCommand(*action, button.command);
        bar->widgetForAction(action)->setObjectName(button.key);
        // A button without a command is not among those that a document may enable.
        if (action->isEnabled())
            m_toolActions.insert(button.key, action);
    }
    for (const char *key : {"Print", "Copy", "Cut", "Paste"})
        setToolButtonEnabled(QLatin1String(key), false);
}

void frmMain::connectCommand(QAction &action, QLatin1String entry)
{
    const auto &table = commands();
    const auto command = std::find_if(table.begin(), table.end(),
                                      [entry](const Command &candidate) { return candidate.entry == entry; });
    action.setEnabled(command != table.end());
    if (command != table.end())
        connect(&action, &QAction::triggered, this, command->run);
}

void frmMain::placeWindow()
{
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens << screen->availableGeometry();
    const QRect place = reachablePlacement(storedPlacement(m_services.userSettings), screens);
    resize(place.size());
    move(place.topLeft());
}

void frmMain::checkAssociation(const ProgramPathForm &programPath)
{
    const QString ignore =
        m_services.userSettings.GetSetting(QStringLiteral("Settings"), QStringLiteral("IgnoreAssoc"));
    if (ignore.toDouble() != 0)
        return;
    const QFileInfo program(QCoreApplication::applicationFilePath());
    QString name = program.fileName();
    if (!programPath.suffix.isEmpty() && name.endsWith(programPath.suffix, Qt::CaseInsensitive))
        name.chop(programPath.suffix.size());
    m_services.associations.check(QDir::toNativeSeparators(program.path()) + programPath.separator + name +
                                      programPath.suffix,
                                  QStringLiteral("Zentil Config"), QStringLiteral(".zcf"));
}

ConfigForm &frmMain::createDocument()
{
    auto *document = new ConfigForm(m_services.files, m_services.messages, *this);
    auto *window = new QMdiSubWindow;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWidget(document);
    // The window's own menu would claim the keys of the Close command, and then neither would get them.
    for (QAction *action : window->systemMenu()->actions())
        action->setShortcuts(QList<QKeySequence>());
    m_area->addSubWindow(window);
    document->show();

    const auto showIcon = [window, document] { window->setWindowIcon(documentIcon(*document)); };
    showIcon();
    connect(document, &ConfigForm::changedFlagChanged, window, showIcon);
    connect(document, &ConfigForm::closeRequested, window, &QMdiSubWindow::close);
    connect(document, &ConfigForm::closing, this, [this, document] { forgetDocument(document); });

    ++m_documentCount;
    document->setCaption(QStringLiteral("Document %1").arg(m_documentCount));
    m_documents.push_back(document);
    setActiveDocument(document);
    return *document;
}

void frmMain::showDocument(ConfigForm &document)
{
    QMdiSubWindow *window = windowOf(document);
    const QMdiSubWindow *front = m_area->currentSubWindow();
    // The first document gets all the room there is; the next ones stand as the one in front does.
    if (m_documents.size() == 1 || (front && front != window && front->isMaximized()))
        window->showMaximized();
    else
        window->show();
    m_area->setActiveSubWindow(window);
    document.setFocus();
}

void frmMain::discardDocument(ConfigForm &document)
{
    document.deactivateDocument();
    forgetDocument(&document);
    delete windowOf(document);
}

void frmMain::openDocument(const QString &path)
{
    ConfigForm *previous = m_activeDocument;
    ConfigForm &document = createDocument();
    auto discard = qScopeGuard([&] {
        discardDocument(document);
        setActiveDocument(previous);
    });
    document.file().SetInfo(path);
    qint16 result = 0;
    document.Form_Load_Data(0, result);
    discard.dismiss();
    document.setCaption(path);
    showDocument(document);
}

void frmMain::setActiveDocument(ConfigForm *document)
{
    if (document == m_activeDocument)
        return;
    if (m_activeDocument)
        m_activeDocument->deactivateDocument();
    m_activeDocument = document;
    if (m_activeDocument)
        m_activeDocument->activateDocument();
}

void frmMain::forgetDocument(ConfigForm *document)
{
    m_documents.erase(std::remove(m_documents.begin(), m_documents.end(), document), m_documents.end());
    if (m_activeDocument == document)
        m_activeDocument = nullptr;
}

bool frmMain::queryCloseAll()
{
    // Every document is asked before the first one closes, so that Cancel leaves all of them open.
    auto forget = qScopeGuard([this] {
        for (ConfigForm *document : m_documents)
            document->forgetCloseAgreed();
    });
    const std::vector<ConfigForm *> asked = m_documents;
    for (ConfigForm *document : asked) {
        // The user sees which document the question is about, and Save As acts on it.
        m_area->setActiveSubWindow(windowOf(*document));
        setActiveDocument(document);
        if (!document->queryClose())
            return false;
    }
    forget.dismiss();
    return true;
}

QString frmMain::chooseFile(const QString &title, bool isForSaving, const QString &proposal)
{
    QFileDialog dialog(this, title);
    dialog.setObjectName(QStringLiteral("CommonDialog"));
    dialog.setAcceptMode(isForSaving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // A name that is not there is reported by Load, in its own words.
    dialog.setFileMode(QFileDialog::AnyFile);
    // The last parentheses of a filter are its pattern and are not shown: "*.*" is what people know, but here it would
    // leave out names without a dot.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(
        {QStringLiteral("Zentil Configuration (*.zcf) (*.zcf)"), QStringLiteral("All Files (*.*) (*)")});
    if (!m_dialogFile.isEmpty())
        dialog.setDirectory(QFileInfo(m_dialogFile).path());
    if (!proposal.isEmpty())
        dialog.selectFile(proposal);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    m_dialogFile = dialog.selectedFiles().first();
    return m_dialogFile;
}
