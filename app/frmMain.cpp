#include "app/frmMain.h"

#include "app/DocumentArea.h"
#include "app/DocumentCommands.h"
#include "app/MainUtil.h"
#include "app/Placement.h"
#include "app/TextFormat.h"
#include "app/UnfinishedCommands.h"
#include "config/ConfigForm.h"
#include "config/EditorFactory.h"
#include "config/GlobalSettingsEditor.h"
#include "platform/FileAccess.h"
#include "platform/Messages.h"
#include "settings/AssociationCheck.h"
#include "settings/Help.h"
#include "settings/RunReported.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QScopeGuard>
#include <QScreen>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolBar>
#include <QUrl>

#include <algorithm>
#include <array>

namespace {

const QLatin1String untitledStart("Document");

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

/// The row of a table of commands that is for that entry; nullptr when there is none.
template<class Rows>
auto rowOf(const Rows &rows, QLatin1String entry)
{
    const auto row = std::find_if(rows.begin(), rows.end(), [entry](const auto &each) { return each.entry == entry; });
    return row == rows.end() ? nullptr : &*row;
}

struct AreaCommand
{
    QLatin1String entry;
    void (DocumentArea::*run)();
};

// clang-format off
constexpr std::array<AreaCommand, 7> areaCommands {{
    {QLatin1String("mnuFileNew"),              &DocumentArea::newDocument},
    {QLatin1String("mnuFileClose"),            &DocumentArea::closeActiveDocument},
    {QLatin1String("mnuWindowNewWindow"),      &DocumentArea::newDocument},
    {QLatin1String("mnuWindowCascade"),        &DocumentArea::cascade},
    {QLatin1String("mnuWindowTileHorizontal"), &DocumentArea::tileOneAboveTheOther},
    {QLatin1String("mnuWindowTileVertical"),   &DocumentArea::tileSideBySide},
    {QLatin1String("mnuWindowArrangeIcons"),   &DocumentArea::arrangeIcons},
}};
// clang-format on

} // namespace

struct frmMain::OwnCommand
{
    QLatin1String entry;
    void (frmMain::*run)();
    /// Whether the program has what the command needs; nothing where it needs no more than the window.
    bool (*isThere)(const Services &services) = nullptr;
};

frmMain::frmMain(const Services &services, const ProgramPathForm &programPath)
    : m_services(services)
    , m_programPath(programPath)
    , m_area(new DocumentArea({services.files, services.messages, *this, services.editors, services.preferences}, this))
    , m_util(std::make_unique<MainUtil>(*statusBar()))
    , m_bars(*this, [this](QLatin1String entry) { return commandOf(entry); })
    , m_dialog(services.files, services.messages, *this)
    , m_printDialogs(services.messages, *this)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QCoreApplication::applicationName());
    setAcceptDrops(true);
    statusBar()->setObjectName(QStringLiteral("sbStatusBar"));
    setCentralWidget(m_area);
    m_bars.setCheckEntry(QLatin1String("mnuViewToolbar"), m_bars.toolBar());
    m_bars.setCheckEntry(QLatin1String("mnuViewStatusBar"), *statusBar());

    placeWindow();
    for (const char *menu : {"mnuItem", "mnuEdit", "mnuFilePrint"})
        setMenuVisible(QLatin1String(menu), false);
    for (const char *button : {"Print", "Copy", "Cut", "Paste"})
        setToolButtonEnabled(QLatin1String(button), false);
    const QString ignore =
        m_services.userSettings.GetSetting(QStringLiteral("Settings"), QStringLiteral("IgnoreAssoc"));
    if (m_services.associations && ignore.toDouble() == 0)
        runReported(m_services.messages, [this] { checkAssociation(); });
}

frmMain::~frmMain() = default;

void frmMain::Load(const QString &path)
{
    if (!m_services.files.fileExists(path)) {
        m_services.messages.show(QStringLiteral("File %1 not found").arg(path), Messages::Icon::Exclamation);
        return;
    }
    m_area->openDocument(path);
}

void frmMain::LoadAll(const QStringList &paths)
{
    for (const QString &path : paths)
        runReported(m_services.messages, [&] { Load(path); });
}

ConfigForm *frmMain::activeDocument() const
{
    return m_area->activeDocument();
}

const std::vector<ConfigForm *> &frmMain::documents() const
{
    return m_area->documents();
}

void frmMain::closeOnRequest()
{
    QWidget *dialog = QApplication::activeModalWidget();
    m_isCloseRequested = dialog != nullptr;
    if (dialog)
        QApplication::alert(dialog);
    else
        close();
}

bool frmMain::queryEndOfSession()
{
    bool isAgreed = false;
    runReported(m_services.messages, [&] { isAgreed = m_area->queryCloseAll(); });
    m_area->forgetCloseAgreed();
    return isAgreed;
}

bool frmMain::event(QEvent *event)
{
    // Behind a dialog that has ended there may be another one.
    if (event->type() == QEvent::WindowUnblocked && m_isCloseRequested)
        QMetaObject::invokeMethod(this, &frmMain::closeOnRequest, Qt::QueuedConnection);
    return QMainWindow::event(event);
}

void frmMain::closeEvent(QCloseEvent *event)
{
    // Refused until everything has gone well: an error while saving must not close the window.
    event->ignore();
    bool isAgreed = false;
    runReported(m_services.messages, [&] { isAgreed = m_area->queryCloseAll(); });
    if (!isAgreed || !m_area->closeAll())
        return;
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
                runReported(m_services.messages, [&] { m_area->openDocument(path); });
        },
        Qt::QueuedConnection);
}

CommandBars::Command frmMain::commandOf(QLatin1String entry)
{
    const std::function<void()> operation = operationOf(entry);
    if (!operation)
        return {};
    return [this, operation] { runReported(m_services.messages, operation); };
}

std::function<void()> frmMain::operationOf(QLatin1String entry)
{
    // clang-format off
    static constexpr std::array<OwnCommand, 12> ownCommands {{
        {QLatin1String("mnuFileOpen"),            &frmMain::Open},
        {QLatin1String("mnuFileSave"),            &frmMain::Save},
        {QLatin1String("mnuFileSaveAs"),          &frmMain::SaveAs},
        {QLatin1String("mnuFileAssoc"),           &frmMain::checkAssociation, [](const Services &services) { return services.associations != nullptr; }},
        {QLatin1String("mnuFilePageSetup"),       &frmMain::PageSetup},
        {QLatin1String("mnuFilePrint"),           &frmMain::Print},
        {QLatin1String("mnuFileExit"),            &frmMain::Exit},
        {QLatin1String("mnuItemWizard"),          &frmMain::RunConfWizard,    [](const Services &services) { return services.globalSettings != nullptr; }},
        {QLatin1String("mnuViewOptions"),         &frmMain::ShowOptions,      [](const Services &services) { return bool(services.showOptions); }},
        {QLatin1String("mnuHelpContents"),        &frmMain::HelpContents,     [](const Services &services) { return services.help != nullptr; }},
        {QLatin1String("mnuHelpSearchForHelpOn"), &frmMain::SearchForHelp,    [](const Services &services) { return services.help != nullptr; }},
        {QLatin1String("mnuHelpAbout"),           &frmMain::ShowAbout,        [](const Services &services) { return bool(services.showAbout); }},
    }};
    // clang-format on
    if (const auto *own = rowOf(ownCommands, entry)) {
        if (own->isThere && !own->isThere(m_services))
            return {};
        return [this, own] { (this->*own->run)(); };
    }
    if (const auto *area = rowOf(areaCommands, entry))
        return [this, area] { (m_area->*area->run)(); };
    if (const auto *unfinished = rowOf(unfinishedCommands, entry))
        return [this, text = QString(unfinished->text)] { m_services.messages.show(text); };
    if (const DocumentCommand *forwarded = documentCommand(entry)) {
        if (forwarded->kind && !m_services.editors.hasEditor(*forwarded->kind))
            return {};
        return [this, forwarded] {
            if (activeDocument())
                forwarded->run(*activeDocument());
        };
    }
    if (const TextCommand format = textCommand(entry)) {
        return [this, format] {
            auto *text =
                activeDocument() ? activeDocument()->findChild<QTextEdit *>(QStringLiteral("rtfText")) : nullptr;
            if (text)
                format(*text);
        };
    }
    return {};
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

QPrinter &frmMain::printer()
{
    return m_printDialogs.printer();
}

void frmMain::showItemMenu(const QPoint &position)
{
    m_bars.showItemMenu(position);
}

void frmMain::Open()
{
    const QString path = m_dialog.ShowOpen();
    if (!path.isEmpty())
        Load(path);
}

void frmMain::Save()
{
    if (!activeDocument()) {
        m_services.messages.show(QStringLiteral("No window is selected. Please select the window to Save"),
                                 Messages::Icon::Exclamation);
        return;
    }
    // A file whose path begins like this counts as untitled too, as it always has.
    if (activeDocument()->caption().startsWith(untitledStart))
        SaveAs();
    else
        activeDocument()->Form_Save_Data();
}

void frmMain::SaveAs()
{
    if (!activeDocument())
        return;
    ConfigForm &document = *activeDocument();
    const QString path = m_dialog.ShowSave(document.caption());
    if (path.isEmpty())
        return;
    auto keepPath = qScopeGuard([&document, before = document.file().path()] { document.file().SetInfo(before); });
    document.file().SetInfo(path);
    document.Form_Save_Data();
    keepPath.dismiss();
    document.setCaption(path);
}

void frmMain::PageSetup()
{
    m_printDialogs.ShowPageSetup();
}

void frmMain::Print()
{
    ConfigForm *document = activeDocument();
    if (!document) {
        m_services.messages.show(QStringLiteral("Nothing to print"), Messages::Icon::Exclamation);
        return;
    }
    if (!m_printDialogs.ShowPrint(QFileInfo(document->caption()).fileName()))
        return;
    document->PrintOut();
}

void frmMain::Exit()
{
    close();
}

void frmMain::RunConfWizard()
{
    if (activeDocument())
        m_services.globalSettings->RunConfWizard(*activeDocument());
}

void frmMain::ShowOptions()
{
    m_services.showOptions(*this);
}

void frmMain::HelpContents()
{
    m_services.help->showContents();
}

void frmMain::SearchForHelp()
{
    if (m_services.help->hasFile()) {
        m_services.help->showSearch();
        return;
    }
    m_services.messages.show(
        QStringLiteral("Unable to display Help Contents. There is no Help associated with this project."));
}

void frmMain::ShowAbout()
{
    m_services.showAbout(*this);
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

void frmMain::checkAssociation()
{
    const QFileInfo program(QCoreApplication::applicationFilePath());
    QString name = program.fileName();
    if (!m_programPath.suffix.isEmpty() && name.endsWith(m_programPath.suffix, Qt::CaseInsensitive))
        name.chop(m_programPath.suffix.size());
    m_services.associations->check(QDir::toNativeSeparators(program.path()) + m_programPath.separator + name +
                                       m_programPath.suffix,
                                   QStringLiteral("Zentil Config"), QStringLiteral(".zcf"));
}
