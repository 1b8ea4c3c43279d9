#include "settings/frmOptions.h"

#include "platform/Messages.h"
#include "platform/Programs.h"
#include "platform/RuntimeError.h"
#include "settings/DocumentPreferences.h"
#include "settings/frmODBCLogon.h"
#include "settings/NumberText.h"
#include "settings/OpenWindows.h"
#include "settings/OptionButtons.h"
#include "settings/SettingsReader.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QShortcut>
#include <QTabWidget>

namespace {

enum Page : int { General, Refresh, Database, Unreachable };

/// Of an interval, in characters: the highest has five digits.
constexpr int intervalWidth = 10;

QCheckBox *createCheckBox(QWidget &form, QLatin1String name, const QString &caption, const QString &toolTip)
{
    auto *box = new QCheckBox(caption, &form);
    box->setObjectName(name);
    box->setToolTip(toolTip);
    return box;
}

} // namespace

frmOptions::frmOptions(const Services &services, QWidget *parent)
    : QDialog(parent)
    , m_services(services)
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(tr("Options"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(createPages());
    addOptionButtons(*this, *layout, m_services.messages, tr("&Apply"), [this] { Apply(); });
    connectKeys();
    Form_Load();
    m_autoStart->setFocus();
}

void frmOptions::Apply()
{
    OptionValues values;
    values.autoStart = m_autoStart->isChecked() ? 1 : 0;
    values.remote = m_remote->isChecked() ? 1 : 0;
    values.refreshHost = intervalOf(*m_refreshHost);
    values.refreshCommand = intervalOf(*m_refreshCommand);
    values.refreshProp = intervalOf(*m_refreshProp);
    values.edit = m_defaultEdit[editAsLine]->isChecked() ? editAsLine : 0;
    values.odbc = m_logon->connection();
    requireSeen();
    applyOptions(m_services.config, values, updateTimersOfOpenWindows);
}

QWidget *frmOptions::createPages()
{
    const std::array<QString, pageCount> captions{tr("&General"), tr("Re&fresh"), tr("&Database"), tr("Advanced")};

    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("tbsOptions"));
    for (int page = 0; page < pageCount; ++page) {
        m_pages[page] = new QWidget(m_tabs);
        m_pages[page]->setObjectName(QStringLiteral("picOptions_%1").arg(page));
        m_tabs->addTab(m_pages[page], captions[page]);
    }
    fillGeneralPage(*new QVBoxLayout(m_pages[General]));
    fillRefreshPage(*new QVBoxLayout(m_pages[Refresh]));
    m_logon = new frmODBCLogon(m_services.dataSources, m_pages[Database]);
    auto *database = new QVBoxLayout(m_pages[Database]);
    database->setContentsMargins(0, 0, 0, 0);
    database->addWidget(m_logon);
    return m_tabs;
}

void frmOptions::fillGeneralPage(QBoxLayout &page)
{
    m_autoStart = createCheckBox(*this, QLatin1String("AutoStartFlag"), tr("&Start automatically"),
                                 tr("Stored for the programs of this machine that ask for it"));
    m_remote = createCheckBox(*this, QLatin1String("RemoteFlag"), tr("&Remote connection"),
                              tr("Look for the objects of a remote host's configuration on that host, unless its "
                                 "document says otherwise"));

    auto *editors = new QGroupBox(tr("Edit an item"), this);
    editors->setObjectName(QStringLiteral("fraDefaultEdit"));
    auto *choices = new QVBoxLayout(editors);
    const std::array<QString, 2> captions{tr("In the editor for its &kind"), tr("As a &line of text")};
    for (size_t choice = 0; choice < m_defaultEdit.size(); ++choice) {
        m_defaultEdit[choice] = new QRadioButton(captions[choice], editors);
        m_defaultEdit[choice]->setObjectName(QStringLiteral("DefaultEdit_%1").arg(choice));
        choices->addWidget(m_defaultEdit[choice]);
    }

    auto *control = new QPushButton(tr("Zentil Control &Panel"), this);
    control->setObjectName(QStringLiteral("Control"));
    // Enter presses cmdOK, wherever the focus is.
    control->setAutoDefault(false);
    control->setToolTip(tr("Open the settings of Zentil itself"));
    connect(control, &QPushButton::clicked, this, &frmOptions::Control_Click);

    page.addWidget(m_autoStart);
    page.addWidget(m_remote);
    page.addWidget(editors);
    page.addWidget(control, 0, Qt::AlignLeft);
    page.addStretch();
}

void frmOptions::fillRefreshPage(QBoxLayout &page)
{
    m_refreshHost = createInterval(QLatin1String("RefreshHost"));
    m_refreshCommand = createInterval(QLatin1String("RefreshCommand"));
    m_refreshProp = createInterval(QLatin1String("RefreshProp"));
    const std::array<std::pair<QString, QLineEdit *>, 3> rows{
        std::pair(tr("&Hosts:"), m_refreshHost),
        std::pair(tr("&Commands:"), m_refreshCommand),
        std::pair(tr("Propert&ies:"), m_refreshProp),
    };

    auto *intervals = new QGroupBox(tr("Refresh intervals"), this);
    intervals->setObjectName(QStringLiteral("fraRefresh"));
    auto *form = new QFormLayout(intervals);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    for (const auto &[caption, field] : rows) {
        auto *label = new QLabel(caption, intervals);
        label->setObjectName(QStringLiteral("lbl") + field->objectName());
        label->setBuddy(field);
        form->addRow(label, field);
    }
    page.addWidget(intervals);
    page.addStretch();
}

QLineEdit *frmOptions::createInterval(QLatin1String name)
{
    auto *field = new QLineEdit(this);
    field->setObjectName(name);
    field->setToolTip(tr("A number up to 65535"));
    field->setFixedWidth(intervalWidth * fontMetrics().horizontalAdvance(QLatin1Char('0')));
    return field;
}

void frmOptions::connectKeys()
{
    const auto connectKey = [this](QKeyCombination key, int step) {
        auto *shortcut = new QShortcut(QKeySequence(key), this);
        connect(shortcut, &QShortcut::activated, this, [this, step] { selectTab(step); });
    };
    connectKey(Qt::CTRL | Qt::Key_Tab, 1);
    connectKey(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, -1);
}

void frmOptions::Form_Load()
{
    SettingsReader reader(m_services.config);
    const OptionValues values = readOptions(reader);
    m_isUnread = reader.isKeptOut();
    m_autoStart->setChecked(values.autoStart != 0);
    m_remote->setChecked(values.remote != 0);
    m_defaultEdit[values.edit == editAsLine ? editAsLine : 0]->setChecked(true);
    // This page has never been for users.
    m_tabs->removeTab(Unreachable);
    m_refreshHost->setText(QString::number(values.refreshHost));
    m_refreshCommand->setText(QString::number(values.refreshCommand));
    m_refreshProp->setText(QString::number(values.refreshProp));
    m_logon->setConnection(values.odbc);
    m_tabs->setCurrentIndex(General);
    const QString problems = reader.problems();
    if (!problems.isEmpty())
        m_services.messages.show(problems, Messages::Icon::Exclamation);
}

/// What is stored and could not be read, because another program kept the registry locked perhaps, is not replaced by
/// defaults that nobody has chosen.
void frmOptions::requireSeen()
{
    if (!m_isUnread)
        return;
    SettingsReader reader(m_services.config);
    (void)readOptions(reader);
    // Then nothing can be stored either, and storing tells why.
    if (reader.isKeptOut())
        return;
    Form_Load();
    throw RuntimeError(RuntimeError::DeviceError, {},
                       tr("The settings could not be read before. They are shown now, and nothing is stored."));
}

void frmOptions::Control_Click()
{
    if (!m_services.programs.start(QStringLiteral("control.exe"), {QStringLiteral("zentilcpl.cpl")}))
        m_services.messages.show(QStringLiteral("Cannot find Zentil Control Panel. Try Start/Settings."));
}

void frmOptions::selectTab(int step)
{
    m_tabs->setCurrentIndex((m_tabs->currentIndex() + step + m_tabs->count()) % m_tabs->count());
}

qint32 frmOptions::intervalOf(QLineEdit &field)
{
    auto showField = qScopeGuard([this, &field] {
        m_tabs->setCurrentWidget(m_pages[Refresh]);
        field.setFocus();
        field.selectAll();
    });
    const qint32 interval = longOf(field.text());
    showField.dismiss();
    return interval;
}
