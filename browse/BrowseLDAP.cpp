#include "browse/BrowseLDAP.h"

#include "browse/DialogButtons.h"
#include "browse/DirectoryLevels.h"
#include "browse/EntryTree.h"
#include "platform/Messages.h"
#include "platform/PasswordScrambler.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVBoxLayout>

#include <limits>

namespace {

// How big the window is at first, in characters, and how much of the properties is seen.
constexpr int windowWidth = 76;
constexpr int windowHeight = 40;
constexpr int shownProperties = 4;

} // namespace

BrowseLDAP::BrowseLDAP(Directory &directory, PasswordScrambler &scrambler, Messages &messages, QWidget *parent)
    : QDialog(parent)
    , m_scrambler(scrambler)
    , m_messages(messages)
    , m_access(directory, messages, [this] { return goOn(); })
    , m_state(new QLabel(this))
{
    setObjectName(QStringLiteral("BrowseLDAP"));
    setWindowTitle(QStringLiteral("Browse Directory Service"));
    m_state->setObjectName(QStringLiteral("State"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    // In the order of the Tab key.
    m_inputs << makeServerPart();
    m_tree = new EntryTree(this);
    m_inputs << m_tree << makeChoicePart() << makePropertiesPart();
    for (QWidget *part : m_inputs)
        layout->addWidget(part, part == m_tree ? 1 : 0);
    layout->addWidget(m_state);
    QPushButton *okButton = addDialogButtons(*this, *layout, tr("OK"), tr("&Cancel"));
    m_inputs << okButton;
    connect(okButton, &QPushButton::clicked, this, &BrowseLDAP::takeResult);
    connectControls();
    // On a small screen the buttons have to be seen too; the frame needs some of it.
    const int mostHeight = screen()->availableSize().height() * 9 / 10;
    resize(windowWidth * fontMetrics().averageCharWidth(), qMin(windowHeight * fontMetrics().height(), mostHeight));
    m_host->setFocus();
}

QLineEdit *BrowseLDAP::addField(QGridLayout &layout, QLatin1String name, const QString &label, const QString &toolTip)
{
    const int row = layout.rowCount();
    auto *field = new QLineEdit;
    field->setObjectName(name);
    field->setToolTip(toolTip);
    field->setMaxLength(std::numeric_limits<int>::max());
    auto *labelInFront = new QLabel(label);
    labelInFront->setObjectName(QLatin1String("lbl_") + name);
    labelInFront->setBuddy(field);
    layout.addWidget(labelInFront, row, 0);
    layout.addWidget(field, row, 1);
    return field;
}

QWidget *BrowseLDAP::makeServerPart()
{
    auto *part = new QWidget(this);
    auto *layout = new QGridLayout(part);
    layout->setContentsMargins({});
    m_host = addField(*layout, QLatin1String("Host"), tr("&Host"),
                      QStringLiteral("Name of server or IP address or blank to use default"));
    m_userName = addField(*layout, QLatin1String("UserName"), tr("&User name"),
                          QStringLiteral("Username in LDAP-standard for or leave blank"));
    m_password = addField(*layout, QLatin1String("Password"), tr("&Password"));
    m_password->setEchoMode(QLineEdit::Password);
    auto *connectButton = new QPushButton(QStringLiteral("Connect"));
    connectButton->setObjectName(QStringLiteral("Command1"));
    layout->addWidget(connectButton, layout->rowCount() - 1, 2);
    return part;
}

QWidget *BrowseLDAP::makeChoicePart()
{
    auto *part = new QWidget(this);
    auto *layout = new QGridLayout(part);
    layout->setContentsMargins({});
    m_object = addField(*layout, QLatin1String("Object"), tr("&Object"));
    m_scope = new QComboBox;
    m_scope->setObjectName(QStringLiteral("Scope"));
    for (const LdapScopeRow &row : ldapScopes)
        m_scope->addItem(row.caption);
    auto *label = new QLabel(tr("&Scope"));
    label->setObjectName(QStringLiteral("lbl_Scope"));
    label->setBuddy(m_scope);
    const int row = layout->rowCount();
    layout->addWidget(label, row, 0);
    layout->addWidget(m_scope, row, 1);
    m_filter = addField(*layout, QLatin1String("Filter"), tr("&Filter"));
    m_filter->setText(QStringLiteral("(objectclass=*)"));
    return part;
}

QWidget *BrowseLDAP::makePropertiesPart()
{
    // The words have always been spelled so.
    auto *frame = new QGroupBox(QStringLiteral("Properites to monitor"), this);
    frame->setObjectName(QStringLiteral("Frame1"));
    m_all = new QRadioButton(QStringLiteral("All Poperties"));
    m_all->setObjectName(QStringLiteral("PropSel_0"));
    m_all->setChecked(true);
    m_selected = new QRadioButton(QStringLiteral("Selected"));
    m_selected->setObjectName(QStringLiteral("PropSel_1"));
    m_properties = new QListWidget;
    m_properties->setObjectName(QStringLiteral("Prop"));
    m_properties->setAccessibleName(tr("Properties"));
    m_properties->setSelectionMode(QAbstractItemView::MultiSelection);
    m_properties->setEnabled(false);
    m_properties->setFixedHeight((shownProperties + 1) * fontMetrics().lineSpacing());
    auto *layout = new QVBoxLayout(frame);
    layout->addWidget(m_all, 0, Qt::AlignLeft);
    layout->addWidget(m_selected, 0, Qt::AlignLeft);
    layout->addWidget(m_properties);
    connect(m_selected, &QRadioButton::toggled, m_properties, &QWidget::setEnabled);
    return frame;
}

void BrowseLDAP::connectControls()
{
    connect(findChild<QPushButton *>(QStringLiteral("Command1")), &QPushButton::clicked, this,
            [this] { (void)connectToServer(); });
    connect(m_tree, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem *node) { readChildren(*node); });
    connect(m_tree, &PickerTree::picked, this, [this](const QTreeWidgetItem *node) {
        if (!m_isOpening)
            showEntry(*node);
    });
}

void BrowseLDAP::SetItem(const QString &object)
{
    const std::optional<LdapUrl> url = readLdapUrl(object);
    if (!url)
        return;
    // What the user has is shown whole before anything is asked of a server: whatever comes, it is not lost.
    m_host->setText(url->host);
    m_userName->setText(url->userName);
    if (!url->password.isEmpty()) {
        const std::optional<QString> password = m_scrambler.unscramble(url->password);
        if (!password) {
            m_messages.show(
                QStringLiteral("Problem unscrambling password. Zentil may not have been properly installed. "));
            m_unread = {url->userName, url->password};
        }
        m_password->setText(password.value_or(QString()));
    }
    if (!url->distinguishedName.isEmpty())
        m_object->setText(url->path());
    if (url->query)
        showQuery(*url->query);
    m_start = url->distinguishedName;
}

void BrowseLDAP::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    // Once it can be seen for what the program waits.
    if (m_start)
        QMetaObject::invokeMethod(this, &BrowseLDAP::openStart, Qt::QueuedConnection);
}

void BrowseLDAP::reject()
{
    if (m_isWaiting)
        m_isCancelled = true;
    else
        QDialog::reject();
}

bool BrowseLDAP::goOn()
{
    if (!m_isWaiting) {
        m_isWaiting = true;
        m_focusBefore = focusWidget();
        for (QWidget *input : std::as_const(m_inputs))
            input->setEnabled(false);
        setCursor(Qt::BusyCursor);
        showState(tr("Waiting for \"%1\". Cancel ends the waiting.").arg(m_host->text()));
    }
    QCoreApplication::processEvents();
    return !m_isCancelled;
}

DirectoryStatus BrowseLDAP::waitFor(const std::function<DirectoryStatus()> &operation)
{
    m_isCancelled = false;
    DirectoryStatus status = operation();
    if (m_isWaiting) {
        m_isWaiting = false;
        for (QWidget *input : std::as_const(m_inputs))
            input->setEnabled(true);
        unsetCursor();
        if (m_focusBefore)
            m_focusBefore->setFocus();
    }
    showState(status.text);
    return status;
}

void BrowseLDAP::showState(const QString &text)
{
    m_state->setText(text);
}

void BrowseLDAP::openStart()
{
    if (!m_start)
        return;
    const QString distinguishedName = *std::exchange(m_start, std::nullopt);
    if (connectToServer() && !distinguishedName.isEmpty())
        openTree(distinguishedName);
}

void BrowseLDAP::showQuery(const LdapQuery &query)
{
    if (query.scope) {
        const std::optional<LdapScope> scope = ldapScopeOf(*query.scope);
        if (!scope)
            m_messages.show(QStringLiteral("Unknow scope %1. Using SUB.").arg(*query.scope));
        m_scope->setCurrentIndex(int(scope.value_or(LdapScope::Sub)));
    }
    m_filter->setText(query.filter);
    for (const QString &attribute : query.attributes) {
        m_properties->addItem(attribute);
        m_properties->item(m_properties->count() - 1)->setSelected(true);
    }
    if (!query.attributes.isEmpty())
        m_selected->setChecked(true);
}

bool BrowseLDAP::connectToServer()
{
    m_tree->clear();
    m_shownKey.clear();
    if (m_host->text().isEmpty())
        m_host->setText(QStringLiteral("localhost"));
    useAccount();
    QStringList contexts;
    const DirectoryStatus status = waitFor([&] { return m_access.readNamingContexts(contexts); });
    if (!status.isSuccess()) {
        if (status.code != DirectoryStatus::Code::Cancelled)
            m_messages.show(QStringLiteral("Could not connect to directory"));
        return false;
    }
    for (const QString &context : std::as_const(contexts))
        m_tree->addTopLevelItem(m_tree->newNode(context, m_access.pathOf(context)));
    if (contexts.isEmpty())
        m_messages.show(QStringLiteral("Connection successful, but no items returned. Perhaps you don't have "
                                       "authorization to view the schema. Try using a different user and password."));
    return true;
}

void BrowseLDAP::openTree(const QString &distinguishedName)
{
    QTreeWidgetItem *reached = m_tree->contextOf(distinguishedName);
    if (!reached) {
        m_messages.show(QStringLiteral("Could not find any valid naming contexts to connect to."));
        reached = attachContext(distinguishedName);
    }
    if (!reached)
        return;
    const QScopedValueRollback<bool> opening(m_isOpening, true);
    bool isFound = true;
    const QStringList levels = levelsBelow(distinguishedName, reached->text(0)).value_or(QStringList());
    expand(*reached);
    for (const QString &name : levels) {
        QTreeWidgetItem *child = m_isCancelled ? nullptr : EntryTree::childNamed(*reached, name);
        isFound = child != nullptr;
        if (!isFound)
            break;
        reached = child;
        expand(*reached);
    }
    m_tree->setCurrentItem(reached);
    m_tree->scrollToItem(reached);
    if (!isFound && !m_isCancelled)
        m_messages.show(QStringLiteral("Could not find DN '%1'. Displaying last item in tree.").arg(distinguishedName));
}

/// Looks for a level at which the server lets itself be read, though it does not name it.
QTreeWidgetItem *BrowseLDAP::attachContext(const QString &distinguishedName)
{
    for (const QString &context : possibleContexts(distinguishedName)) {
        const QString path = m_access.pathOf(context);
        std::unique_ptr<DirectoryObject> entry;
        const DirectoryStatus status = waitFor([&] { return m_access.open(path, entry); });
        if (status.isSuccess()) {
            QTreeWidgetItem *node = m_tree->newNode(context, path);
            m_tree->addTopLevelItem(node);
            return node;
        }
        if (status.code == DirectoryStatus::Code::Cancelled)
            return nullptr;
        const QString question =
            QStringLiteral("Unable to connect at %1. Do you want to try to open the next level? ").arg(context);
        if (m_messages.ask(question, Messages::Buttons::YesNo) == Messages::Answer::No)
            return nullptr;
    }
    return nullptr;
}

void BrowseLDAP::expand(QTreeWidgetItem &node)
{
    if (node.isExpanded())
        readChildren(node);
    else
        node.setExpanded(true);
}

void BrowseLDAP::readChildren(QTreeWidgetItem &node)
{
    using Code = DirectoryStatus::Code;
    if (m_isWaiting || !EntryTree::hasPlaceholder(node))
        return;
    EntryTree::removePlaceholder(node);
    useAccount();
    const DirectoryStatus status = waitFor([&] {
        std::unique_ptr<DirectoryObject> entry;
        DirectoryStatus opened = m_access.open(EntryTree::keyOf(node), entry);
        if (!opened.isSuccess())
            return opened;
        return entry->children([&](const QList<DirectoryChild> &children) {
            QList<QTreeWidgetItem *> nodes;
            for (const DirectoryChild &child : children) {
                nodes << (child.isElsewhere ? EntryTree::newNodeElsewhere(child.Name, child.path)
                                            : m_tree->newNode(child.Name, child.path));
            }
            node.addChildren(nodes);
        });
    });
    if (status.isSuccess())
        return;
    if (status.code != Code::Incomplete) {
        // With its placeholder it can be tried again.
        m_tree->forgetChildren(node);
    }
    if (status.code != Code::Cancelled)
        m_messages.show(status.text, Messages::Icon::Exclamation);
}

void BrowseLDAP::showEntry(const QTreeWidgetItem &node)
{
    const QString key = EntryTree::keyOf(node);
    // A click selects first.
    if (m_isWaiting || (key == m_shownKey && key == m_object->text()))
        return;
    m_shownKey = key;
    m_object->setText(key);
    m_properties->clear();
    if (EntryTree::isElsewhere(node))
        return;
    useAccount();
    std::unique_ptr<DirectoryObject> entry;
    const DirectoryStatus status = waitFor([&] { return m_access.open(key, entry); });
    if (status.isSuccess())
        m_properties->addItems(entry->propertyNames());
    else
        m_shownKey.clear();
}

void BrowseLDAP::useAccount()
{
    m_access.setServer(m_host->text(), m_userName->text(), m_password->text());
}

QString BrowseLDAP::scrambledPassword()
{
    const QString userName = m_userName->text();
    if (!m_password->isModified() && userName == m_unread.userName)
        return m_unread.password;
    if (userName.isEmpty() || m_password->text().isEmpty())
        return {};
    const std::optional<QString> scrambled = m_scrambler.scramble(m_password->text());
    if (!scrambled)
        m_messages.show(QStringLiteral("Problem scrambling password. Zentil may not have been properly installed. "));
    return scrambled.value_or(QString());
}

void BrowseLDAP::takeResult()
{
    LdapChoice choice;
    choice.userName = m_userName->text();
    choice.password = scrambledPassword();
    choice.path = m_object->text();
    if (m_selected->isChecked()) {
        choice.attributes = QStringList();
        for (int i = 0; i < m_properties->count(); ++i) {
            if (m_properties->item(i)->isSelected())
                *choice.attributes << m_properties->item(i)->text();
        }
    }
    choice.scope = ldapScopes[size_t(m_scope->currentIndex())].scope;
    choice.filter = m_filter->text();
    m_url = writeLdapUrl(choice);
    accept();
}
