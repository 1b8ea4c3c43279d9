#include "app/DocumentArea.h"

#include "app/Tiling.h"
#include "settings/Icons.h"

#include <QAction>
#include <QLayout>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScopeGuard>
#include <QScrollBar>
#include <QStyleOptionTitleBar>

#include <algorithm>

namespace {

ConfigForm *documentIn(const QMdiSubWindow *window)
{
    return window ? qobject_cast<ConfigForm *>(window->widget()) : nullptr;
}

QMdiSubWindow *windowOf(const ConfigForm &document)
{
    return qobject_cast<QMdiSubWindow *>(document.parentWidget());
}

QIcon documentIcon(const ConfigForm &document)
{
    return themedIcon(QLatin1String(document.changed() ? "document-modified" : "document"));
}

QSize boundingSize(const QList<QRect> &tiles)
{
    QRect bounds;
    for (const QRect &tile : tiles)
        bounds |= tile;
    return bounds.size();
}

/// The window in front and the control with the focus are the same afterwards: a window that stops being maximised
/// takes the focus from what is in it.
class KeptFront final
{
public:
    explicit KeptFront(QMdiArea &area)
        : m_area(area)
        , m_window(area.currentSubWindow())
        , m_focus(area.window()->focusWidget())
    {
    }
    KeptFront(const KeptFront &) = delete;
    KeptFront &operator=(const KeptFront &) = delete;
    ~KeptFront()
    {
        if (m_window)
            m_area.setActiveSubWindow(m_window);
        if (m_focus)
            m_focus->setFocus();
    }

private:
    QMdiArea &m_area;
    QMdiSubWindow *m_window;
    QWidget *m_focus;
};

} // namespace

DocumentArea::DocumentArea(const ConfigForm::Services &services, QWidget *parent)
    : QMdiArea(parent)
    , m_services(services)
{
    setObjectName(QStringLiteral("DocumentArea"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // When a document closes, the one that was in front before it comes back.
    setActivationOrder(QMdiArea::ActivationHistoryOrder);
    connect(this, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *window) {
        // No window of the area is active either while another window of the program is in front; the document then
        // stays the active one.
        ConfigForm *document = documentIn(window);
        if (document && document != m_activeDocument) {
            setActiveDocument(document);
            document->setFocus();
        }
    });
}

DocumentArea::~DocumentArea()
{
    // What is still open goes with the area, and must not be told of it one by one.
    disconnect(this);
    for (ConfigForm *document : m_documents)
        document->disconnect(this);
}

void DocumentArea::newDocument()
{
    showDocument(createDocument());
}

void DocumentArea::openDocument(const QString &path)
{
    ConfigForm *previous = m_activeDocument;
    ConfigForm &document = createDocument();
    auto discard = qScopeGuard([&] {
        discardDocument(document);
        // The area brings a document of its own choice to the front, and commands go to the one in front.
        if (previous)
            setActiveSubWindow(windowOf(*previous));
        setActiveDocument(previous);
    });
    document.file().SetInfo(path);
    qint16 result = 0;
    document.Form_Load_Data(0, result);
    discard.dismiss();
    document.setCaption(path);
    showDocument(document);
}

void DocumentArea::closeActiveDocument()
{
    if (m_activeDocument)
        windowOf(*m_activeDocument)->close();
}

bool DocumentArea::queryCloseAll()
{
    // Every document is asked before the first one closes, so that Cancel leaves all of them open.
    auto forget = qScopeGuard([this] { forgetCloseAgreed(); });
    const std::vector<ConfigForm *> asked = m_documents;
    for (ConfigForm *document : asked) {
        // The user sees which document the question is about, and Save As acts on it.
        setActiveSubWindow(windowOf(*document));
        setActiveDocument(document);
        document->setFocus();
        if (!document->queryClose())
            return false;
    }
    forget.dismiss();
    return true;
}

void DocumentArea::forgetCloseAgreed()
{
    for (ConfigForm *document : m_documents)
        document->forgetCloseAgreed();
}

bool DocumentArea::closeAll()
{
    const std::vector<ConfigForm *> closed = m_documents;
    return std::all_of(closed.begin(), closed.end(),
                       [](const ConfigForm *document) { return windowOf(*document)->close(); });
}

void DocumentArea::cascade()
{
    const QList<QMdiSubWindow *> arranged = windows(StackingOrder, false);
    if (arranged.isEmpty())
        return;
    QStyleOptionTitleBar option;
    const int step = style()->pixelMetric(QStyle::PM_TitleBarHeight, &option, arranged.first()) +
                     style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, arranged.first());
    arrange(arranged, [step](const QSize &area, int count, const QSize &minimum) {
        return cascaded(area, count, minimum, step);
    });
}

void DocumentArea::tileOneAboveTheOther()
{
    arrange(windows(CreationOrder, false), tiledOneAboveTheOther);
}

void DocumentArea::tileSideBySide()
{
    arrange(windows(CreationOrder, false), tiledSideBySide);
}

void DocumentArea::arrangeIcons()
{
    const QList<QMdiSubWindow *> icons = windows(CreationOrder, true);
    if (icons.isEmpty())
        return;
    const QList<QPoint> corners = iconCorners(viewport()->size(), int(icons.size()), icons.first()->size());
    for (qsizetype i = 0; i < icons.size(); ++i)
        icons.at(i)->move(corners.at(i));
}

ConfigForm &DocumentArea::createDocument()
{
    auto *document = new ConfigForm(m_services);
    auto *window = new QMdiSubWindow;
    window->setObjectName(QStringLiteral("DocumentWindow"));
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWidget(document);
    // The window's own menu would claim the keys of the Close command, and then neither would get them.
    for (QAction *action : window->systemMenu()->actions())
        action->setShortcuts(QList<QKeySequence>());
    addSubWindow(window);
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

void DocumentArea::showDocument(ConfigForm &document)
{
    QMdiSubWindow *window = windowOf(document);
    const QMdiSubWindow *front = currentSubWindow();
    // The first document gets all the room there is; the next ones stand as the one in front does.
    if (m_documents.size() == 1 || (front && front != window && front->isMaximized()))
        window->showMaximized();
    else
        window->show();
    setActiveSubWindow(window);
    document.setFocus();
}

void DocumentArea::discardDocument(ConfigForm &document)
{
    document.deactivateDocument();
    forgetDocument(&document);
    std::unique_ptr<QMdiSubWindow>(windowOf(document)).reset();
}

void DocumentArea::setActiveDocument(ConfigForm *document)
{
    if (document == m_activeDocument)
        return;
    if (m_activeDocument)
        m_activeDocument->deactivateDocument();
    m_activeDocument = document;
    if (m_activeDocument)
        m_activeDocument->activateDocument();
}

void DocumentArea::forgetDocument(ConfigForm *document)
{
    m_documents.erase(std::remove(m_documents.begin(), m_documents.end(), document), m_documents.end());
    if (m_activeDocument == document)
        m_activeDocument = nullptr;
}

QList<QMdiSubWindow *> DocumentArea::windows(WindowOrder order, bool areMinimised) const
{
    QList<QMdiSubWindow *> found = subWindowList(order);
    found.removeIf([areMinimised](const QMdiSubWindow *window) { return window->isMinimized() != areMinimised; });
    return found;
}

void DocumentArea::arrange(const QList<QMdiSubWindow *> &arranged, const Places &placesIn)
{
    const KeptFront front(*this);
    QSize minimum;
    for (QMdiSubWindow *window : arranged) {
        if (window->isMaximized())
            window->showNormal();
        minimum = minimum.expandedTo(window->minimumSizeHint());
    }
    // Without the buttons of a maximised window the menu bar may be lower, and the area higher.
    if (QLayout *layout = window()->layout())
        layout->activate();
    // Back to where the area begins.
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);

    QSize area = maximumViewportSize();
    const QList<QMdiSubWindow *> icons = windows(CreationOrder, true);
    if (!icons.isEmpty())
        area.setHeight(iconCorners(area, int(icons.size()), icons.first()->size()).constLast().y());
    const int count = int(arranged.size());
    // Where windows reach beyond one edge, the scroll bar takes room at the other.
    const QSize needed = boundingSize(placesIn(area, count, minimum));
    if (needed.height() > area.height())
        area.rwidth() -= verticalScrollBar()->sizeHint().width();
    else if (needed.width() > area.width())
        area.rheight() -= horizontalScrollBar()->sizeHint().height();
    const QList<QRect> places = placesIn(area, count, minimum);
    for (qsizetype i = 0; i < arranged.size(); ++i)
        arranged.at(i)->setGeometry(places.at(i));
}
