#include "app/frmMain.h"

#include "app/MainUtil.h"
#include "app/Placement.h"
#include "config/ConfigForm.h"
#include "platform/FileAccess.h"
#include "platform/Messages.h"
#include "platform/Platform.h"
#include "settings/AssociationCheck.h"
#include "settings/Icons.h"
#include "settings/RunReported.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QPrinter>
#include <QScopeGuard>
#include <QScreen>
#include <QStatusBar>
#include <QUrl>

#include <algorithm>
#include <array>

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

/// A dropped file is opened where it is. Taken as a move, the program that it comes from would remove it.
bool acceptAsCopy(QDropEvent &event)
{
    if (localFiles(*event.mimeData()).isEmpty() || !(event.possibleActions() & Qt::CopyAction))
        return false;
    event.setDropAction(Qt::CopyAction);
    event.accept();
    return true;
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
    , m_bars(*this, [this](QLatin1String entry) { return commandOf(entry); })
    , m_dialog(services.files, services.messages, *this)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QCoreApplication::applicationName());
    setAcceptDrops(true);
    statusBar()->setObjectName(QStringLiteral("sbStatusBar"));
    m_area->setObjectName(QStringLiteral("DocumentArea"));
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // When a document closes, the one that was in front before it comes back.
    m_area->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    setCentralWidget(m_area);
    connect(m_area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *window) {
        // No window of the area is active either while another window of the program is in front; the document then
        // stays the active one.
        ConfigForm *document = documentIn(window);
        if (document && document != m_activeDocument) {
            setActiveDocument(document);
            document->setFocus();
        }
    });

    placeWindow();
    for (const char *menu : {"mnuItem", "mnuEdit", "mnuFilePrint"})
        setMenuVisible(QLatin1String(menu), false);
    for (const char *button : {"Print", "Copy", "Cut", "Paste"})
        setToolButtonEnabled(QLatin1String(button), false);
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
    bool isAgreed = false;
    runReported(m_services.messages, [&] { isAgreed = queryCloseAll(); });
    if (!isAgreed)
        return;
    const std::vector<ConfigForm *> agreed = m_documents;
    for (const ConfigForm *document : agreed) {
        if (!windowOf(*document)->close())
            return;
    }
    if (!isMinimized() && !storePlacement(m_services.userSettings, {pos(), size()}))
        m_services.messages.show(tr("The place of the window cannot be stored."), Messages::Icon::Exclamation);
    event->accept();
    QCoreApplication::exit();
}

void frmMain::dragEnterEvent(QDragEnterEvent *event)
{
    (void)acceptAsCopy(*event);
}

void frmMain::dropEvent(QDropEvent *event)
{
    if (!acceptAsCopy(*event))
        return;
    // The program that the files come from waits until this returns; it must not wait for a message to be closed.
    QMetaObject::invokeMethod(
        this,
        [this, paths = localFiles(*event->mimeData())] {
            for (const QString &path : paths)
                runReported(m_services.messages, [&] { openDocument(path); });
        },
        Qt::QueuedConnection);
}

CommandBars::Command frmMain::commandOf(QLatin1String entry)
{
    struct Row
    {
        QLatin1String entry;
        void (frmMain::*run)();
    };
    // clang-format off
    static constexpr std::array<Row, 7> commands {{
        {QLatin1String("mnuFileNew"),    &frmMain::New},
        {QLatin1String("mnuFileOpen"),   &frmMain::Open},
        {QLatin1String("mnuFileClose"),  &frmMain::Close},
        {QLatin1String("mnuFileSave"),   &frmMain::Save},
        {QLatin1String("mnuFileSaveAs"), &frmMain::SaveAs},
        {QLatin1String("mnuFileExit"),   &frmMain::Exit},
        {QLatin1String("mnuWindowFont"), &frmMain::ChangeFont},
    }};
    // clang-format on
    const auto *row = std::find_if(commands.begin(), commands.end(),
                                   [entry](const Row &candidate) { return candidate.entry == entry; });
    if (row == commands.end())
        return {};
    return [this, run = row->run] { runReported(m_services.messages, [&] { (this->*run)(); }); };
}

void frmMain::setMenuVisible(QLatin1String name, bool isVisible)
{
    m_bars.setMenuVisible(name, isVisible);
}

void frmMain::setMenuEnabled(QLatin1String name, bool isEnabled)
{
    m_bars.setMenuEnabled(name, isEnabled);
}

void frmMain::setToolButtonEnabled(QLatin1String key, bool isEnabled)
{
    m_bars.setToolButtonEnabled(key, isEnabled);
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
    const QString path = m_dialog.ShowOpen();
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
    const QString path = m_dialog.ShowSave(document.caption());
    if (path.isEmpty())
        return;
    auto keepPath = qScopeGuard([&document, before = document.file().path()] { document.file().SetInfo(before); });
    document.file().SetInfo(path);
    document.Form_Save_Data();
    keepPath.dismiss();
    document.setCaption(path);
}

QPrinter &frmMain::printer()
{
    if (!m_printer)
        m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *m_printer;
}

void frmMain::showItemMenu(const QPoint &position)
{
    m_bars.showItemMenu(position);
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
    auto *document =
        new ConfigForm({m_services.files, m_services.messages, *this, m_services.editors, m_services.preferences});
    auto *window = new QMdiSubWindow;
    window->setObjectName(QStringLiteral("DocumentWindow"));
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
    std::unique_ptr<QMdiSubWindow>(windowOf(document)).reset();
}

void frmMain::openDocument(const QString &path)
{
    ConfigForm *previous = m_activeDocument;
    ConfigForm &document = createDocument();
    auto discard = qScopeGuard([&] {
        discardDocument(document);
        // The area brings a document of its own choice to the front, and commands go to the one in front.
        if (previous)
            m_area->setActiveSubWindow(windowOf(*previous));
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
        document->setFocus();
        if (!document->queryClose())
            return false;
    }
    forget.dismiss();
    return true;
}
