#include "browse/BrowseReg.h"

#include "browse/DialogButtons.h"
#include "browse/PickerTree.h"
#include "platform/Messages.h"
#include "registry/clsKey.h"
#include "registry/RegistryConstants.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <limits>

namespace {

// clang-format off
/// The hives that are offered, in this order.
constexpr std::array roots {
    QLatin1String("HKEY_CLASSES_ROOT"),
    QLatin1String("HKEY_CURRENT_CONFIG"),
    QLatin1String("HKEY_CURRENT_USER"),
    QLatin1String("HKEY_LOCAL_MACHINE"),
    QLatin1String("HKEY_USERS"),
};
// clang-format on

// How big the window is at first, in characters.
constexpr int windowWidth = 64;
constexpr int windowHeight = 26;

} // namespace

BrowseReg::BrowseReg(Registry &registry, Messages &messages, const QString &host, bool isRemote, QWidget *parent)
    : QDialog(parent)
    , m_registry(registry)
    , m_messages(messages)
    , m_host(host)
    , m_isRemote(isRemote)
    , m_keyList(new PickerTree(QLatin1String("KeyList"), tr("Registry keys"), QLatin1String("Junk"), this))
    , m_objectName(new QLineEdit(this))
{
    setObjectName(QStringLiteral("BrowseReg"));
    m_objectName->setObjectName(QStringLiteral("ObjectName"));
    m_objectName->setMaxLength(std::numeric_limits<int>::max());
    auto *label = new QLabel(tr("&Key"), this);
    label->setObjectName(QStringLiteral("Label1"));
    label->setBuddy(m_objectName);

    auto *field = new QHBoxLayout;
    field->addWidget(label);
    field->addWidget(m_objectName);
    auto *layout = new QVBoxLayout(this);
    // The tree and the field follow the window's size.
    layout->addWidget(m_keyList, 1);
    layout->addLayout(field);
    QPushButton *okButton = addDialogButtons(*this, *layout, tr("OK"), tr("&Cancel"));
    connect(okButton, &QPushButton::clicked, this, &QDialog::accept);

    addRoots();
    updateTitle();
    resize(windowWidth * fontMetrics().averageCharWidth(), windowHeight * fontMetrics().height());
    m_keyList->setFocus();
    connect(m_keyList, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem *node) { readSubKeys(*node); });
    connect(m_keyList, &PickerTree::picked, this, &BrowseReg::showPath);
}

void BrowseReg::SetItem(const QString &path)
{
    const QString fullPath = meantKeyPath(path);
    if (fullPath.isEmpty())
        return;
    // What the user has is not lost when the key cannot be read.
    m_objectName->setText(shownKeyPath(fullPath));
    if (!findHostOf(fullPath, path))
        return;
    nameHost(fullPath);
    walk(fullPath);
}

QString BrowseReg::keyPath() const
{
    return m_objectName->text();
}

void BrowseReg::addRoots()
{
    for (const QLatin1String root : roots)
        m_keyList->addTopLevelItem(newNode(root, m_paths.enter(root)));
}

void BrowseReg::updateTitle()
{
    setWindowTitle(m_isRemote ? QStringLiteral("Registry (\\\\%1) [resizable]").arg(m_host)
                              : QStringLiteral("Registry [resizable]"));
}

QTreeWidgetItem *BrowseReg::newNode(const QString &text, const QString &nodeKey)
{
    QTreeWidgetItem *node = m_keyList->newNode(text, nodeKey);
    m_nodes.insert(nodeKey, node);
    return node;
}

bool BrowseReg::canOpen(const QString &path) const
{
    clsKey key(m_registry);
    key.OpenFull(path, m_host, 0, RegistryConstants::allAccess);
    return key.KeyOK();
}

bool BrowseReg::findHostOf(const QString &path, const QString &shownPath)
{
    if (canOpen(path))
        return true;
    if (!m_host.isEmpty()) {
        m_messages.show(QStringLiteral("Unable to read key %1 at %2. Trying local system.").arg(shownPath, m_host));
        m_host.clear();
        m_isRemote = false;
        updateTitle();
        if (canOpen(path))
            return true;
    }
    m_messages.show(QStringLiteral("Unable to read key ") + shownPath);
    return false;
}

void BrowseReg::nameHost(const QString &path)
{
    const QString root = path.section(QLatin1Char('\\'), 0, 0);
    if (QTreeWidgetItem *node = m_nodes.value(KeyPaths::nodeKey(root)); node && m_isRemote)
        node->setText(0, m_paths.path(PickerTree::keyOf(*node)) + QStringLiteral("(\\\\%1)").arg(m_host));
}

void BrowseReg::walk(const QString &path)
{
    QTreeWidgetItem *reached = nullptr;
    for (qsizetype end = 0; end >= 0;) {
        end = path.indexOf(QLatin1Char('\\'), end + 1);
        QTreeWidgetItem *node = m_nodes.value(KeyPaths::nodeKey(path.left(end)));
        // A hive that is not offered, or a key that is not listed.
        if (!node)
            break;
        reached = node;
        expand(*reached);
    }
    if (!reached)
        return;
    m_keyList->setCurrentItem(reached);
    showPath(reached);
}

void BrowseReg::expand(QTreeWidgetItem &node)
{
    if (node.isExpanded())
        readSubKeys(node);
    else
        node.setExpanded(true);
}

void BrowseReg::readSubKeys(QTreeWidgetItem &node)
{
    const QString path = m_paths.path(PickerTree::keyOf(node));
    clsKey key(m_registry);
    key.OpenFull(path, m_host, 0, RegistryConstants::allAccess);
    if (!key.KeyOK()) {
        // With its placeholder it can be tried again.
        node.setExpanded(false);
        const QString from = m_host.isEmpty() ? QString() : QStringLiteral(" from ") + m_host;
        m_messages.show(QStringLiteral("Unable to read key ") + path + from);
        return;
    }
    PickerTree::removePlaceholder(node);
    QList<QTreeWidgetItem *> added;
    for (const clsKey &subKey : key.SubKeys()) {
        const QString nodeKey = m_paths.enter(path + QLatin1Char('\\') + subKey.Name());
        if (!m_nodes.contains(nodeKey))
            added << newNode(subKey.Name(), nodeKey);
    }
    node.addChildren(added);
    m_keyList->scrollToItem(&node);
}

void BrowseReg::showPath(const QTreeWidgetItem *node)
{
    const QString path = m_paths.path(PickerTree::keyOf(*node));
    if (!path.isEmpty())
        m_objectName->setText(shownKeyPath(path));
}
