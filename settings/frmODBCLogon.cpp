#include "settings/frmODBCLogon.h"

#include "settings/DataSourceNames.h"
#include "settings/WidenDropDown.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <utility>

namespace {

/// How much of a field is seen, in characters. Drivers and servers have long names.
constexpr int fieldWidth = 32;

} // namespace

frmODBCLogon::frmODBCLogon(DataSources &dataSources, QWidget *parent)
    : QWidget(parent)
    , m_switch(new QPushButton(tr("Database co&nnection"), this))
    , m_dsn(new QComboBox(this))
    , m_user(new QLineEdit(this))
    , m_db(new QLineEdit(this))
    , m_driver(new QLineEdit(this))
    , m_server(new QLineEdit(this))
    , m_notice(new QLabel(tr("The data sources of this machine cannot be listed."), this))
{
    setObjectName(QStringLiteral("frmODBCLogon"));
    m_switch->setObjectName(QStringLiteral("ODBCButton"));
    m_switch->setCheckable(true);
    m_switch->setAutoDefault(false);
    m_switch->setToolTip(tr("Switch the connection to a database on or off"));
    m_dsn->setEditable(true);
    m_dsn->setInsertPolicy(QComboBox::NoInsert);
    // It would change what is being typed into the name of a source that begins like it.
    m_dsn->setCompleter(nullptr);
    m_dsn->setToolTip(tr("The data source, one of this machine's or another name"));
    m_notice->setObjectName(QStringLiteral("lblNotice"));
    m_notice->setWordWrap(true);
    layOut();
    listDataSources(dataSources);
    connect(m_switch, &QPushButton::toggled, this, &frmODBCLogon::switchFields);
    setConnection({});
}

void frmODBCLogon::setConnection(const OdbcConnection &connection)
{
    m_user->setText(connection.user);
    m_db->setText(connection.db);
    m_driver->setText(connection.driver);
    m_server->setText(connection.server);
    m_keptDsn = connection.dsn;
    const QSignalBlocker noToggle(m_switch);
    m_switch->setChecked(!connection.dsn.isEmpty());
    showSwitched();
}

OdbcConnection frmODBCLogon::connection() const
{
    const QString dsn = m_switch->isChecked() ? m_dsn->currentText() : QString();
    return {dsn, m_user->text(), m_db->text(), m_driver->text(), m_server->text()};
}

void frmODBCLogon::layOut()
{
    auto *grid = new QGridLayout;
    // clang-format off
    addField(*grid, new QLabel(tr("Data s&ource:"), this), m_dsn,    QLatin1String("ODBCdsn"));
    addField(*grid, new QLabel(tr("&User:"), this),        m_user,   QLatin1String("ODBCuser"));
    addField(*grid, new QLabel(tr("Data&base:"), this),    m_db,     QLatin1String("ODBCdb"));
    addField(*grid, new QLabel(tr("Dri&ver:"), this),      m_driver, QLatin1String("ODBCdriver"));
    addField(*grid, new QLabel(tr("S&erver:"), this),      m_server, QLatin1String("ODBCserver"));
    // clang-format on
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_switch, 0, Qt::AlignLeft);
    column->addLayout(grid);
    column->addWidget(m_notice);
    column->addStretch();
}

void frmODBCLogon::addField(QGridLayout &grid, QLabel *label, QWidget *input, QLatin1String name)
{
    const int row = grid.rowCount();
    input->setObjectName(name);
    input->setMinimumWidth(fieldWidth * fontMetrics().averageCharWidth());
    label->setObjectName(QStringLiteral("lbl") + name);
    label->setBuddy(input);
    grid.addWidget(label, row, 0);
    grid.addWidget(input, row, 1);
    m_fields << Field{label, input};
}

void frmODBCLogon::listDataSources(DataSources &dataSources)
{
    const std::optional<QStringList> names = dataSourceNames(dataSources);
    m_notice->setVisible(!names.has_value());
    m_dsn->addItems(names.value_or(QStringList()));
    m_dsn->setCurrentIndex(-1);
    WidenDropDown(*m_dsn);
}

void frmODBCLogon::switchFields(bool isOn)
{
    if (!isOn)
        m_keptDsn = m_dsn->currentText();
    showSwitched();
}

void frmODBCLogon::showSwitched()
{
    const bool isOn = m_switch->isChecked();
    for (const Field &field : std::as_const(m_fields)) {
        field.label->setEnabled(isOn);
        field.input->setEnabled(isOn);
    }
    m_dsn->setEditText(isOn ? m_keptDsn : QStringLiteral("empty"));
}
