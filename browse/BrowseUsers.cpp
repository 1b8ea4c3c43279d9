#include "browse/BrowseUsers.h"

#include "browse/DialogButtons.h"
#include "browse/UsersGroups.h"
#include "platform/ByteText.h"

#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

/// What is seen of the list at first, in characters and lines.
constexpr int listWidth = 45;
constexpr int listHeight = 18;

/// Where an entry keeps its name, which may hold what cannot be shown.
constexpr int nameRole = Qt::UserRole;

/// A list in which no entry is the current one until the user goes to it. The toolkit would make the first one current,
/// without selecting it, when the list gets the focus; then the first press of an arrow key would pass over it.
class AccountList final : public QListWidget
{
public:
    using QListWidget::QListWidget;

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        QListWidget::focusInEvent(event);
        if (selectedItems().isEmpty())
            selectionModel()->clearCurrentIndex();
    }

    [[nodiscard]] QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override
    {
        // Without a current entry the toolkit goes to the first one, whatever the key.
        if (action == MoveEnd && !currentIndex().isValid())
            return model()->index(count() - 1, 0);
        return QListWidget::moveCursor(action, modifiers);
    }
};

} // namespace

BrowseUsers::BrowseUsers(Accounts &accounts, QWidget *parent)
    : QDialog(parent)
    , m_accounts(accounts)
    , m_list(new AccountList(this))
{
    setObjectName(QStringLiteral("BrowseUsers"));
    setModal(true);
    m_list->setObjectName(QStringLiteral("List"));
    m_list->setUniformItemSizes(true);

    auto *layout = new QVBoxLayout(this);
    // The room that a bigger window gives goes to the list.
    layout->addWidget(m_list, 1);
    QPushButton *okButton = addDialogButtons(*this, *layout, QStringLiteral("OK"), QStringLiteral("Cancel"));
    resize(listWidth * fontMetrics().averageCharWidth(), listHeight * fontMetrics().lineSpacing());

    connect(okButton, &QPushButton::clicked, this, &BrowseUsers::takeSelection);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &BrowseUsers::takeSelection);
}

void BrowseUsers::ShowUsers(const QString &host, bool isRemote)
{
    setKind(QLatin1String("Users"), host, isRemote);
    UsersGroups source(m_accounts);
    if (isRemote)
        source.setServer(host);
    addNames(source.Users());
}

void BrowseUsers::ShowGroups(const QString &host, bool isRemote)
{
    setKind(QLatin1String("Groups"), host, isRemote);
    UsersGroups source(m_accounts);
    if (isRemote)
        source.setServer(host);
    addNames(source.Groups(true));
    addNames(source.Groups(false));
}

void BrowseUsers::setKind(QLatin1String kind, const QString &host, bool isRemote)
{
    setWindowTitle(isRemote ? QStringLiteral("%1 (\\\\%2)").arg(kind, host) : QString(kind));
    m_list->setAccessibleName(kind);
}

void BrowseUsers::addNames(const QStringList &names)
{
    for (const QString &name : names) {
        auto *item = new QListWidgetItem(shownText(name), m_list);
        item->setData(nameRole, name);
    }
}

void BrowseUsers::takeSelection()
{
    for (int row = 0; row < m_list->count(); ++row) {
        const QListWidgetItem *item = m_list->item(row);
        if (item->isSelected()) {
            m_selected = item->data(nameRole).toString();
            break;
        }
    }
    accept();
}
