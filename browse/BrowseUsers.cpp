#include "browse/BrowseUsers.h"

#include "browse/UsersGroups.h"
#include "platform/ByteText.h"

#include <QHBoxLayout>
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
class NameList final : public QListWidget
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

QPushButton *addButton(QHBoxLayout &row, const QString &name, const QString &caption)
{
    auto *button = new QPushButton(caption);
    button->setObjectName(name);
    row.addWidget(button);
    return button;
}

} // namespace

BrowseUsers::BrowseUsers(Accounts &accounts, QWidget *parent)
    : QDialog(parent)
    , m_accounts(accounts)
    , m_list(new NameList(this))
{
    setObjectName(QStringLiteral("BrowseUsers"));
    setModal(true);
    m_list->setObjectName(QStringLiteral("List"));
    m_list->setUniformItemSizes(true);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    QPushButton *okButton = addButton(*buttons, QStringLiteral("OKButton"), QStringLiteral("OK"));
    okButton->setDefault(true);
    QPushButton *cancelButton = addButton(*buttons, QStringLiteral("CancelButton"), QStringLiteral("Cancel"));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addLayout(buttons);
    resize(listWidth * fontMetrics().averageCharWidth(), listHeight * fontMetrics().lineSpacing());

    connect(okButton, &QPushButton::clicked, this, &BrowseUsers::takeSelection);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &BrowseUsers::takeSelection);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
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
