#pragma once

#include "settings/OptionValues.h"

#include <QWidget>

class DataSources;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// The page of the options for the database connection. ODBCButton switches its fields. While they are off there is no
/// data source: the field for it shows "empty", and that is what the connection has; the other fields keep their texts.
class frmODBCLogon final : public QWidget
{
    Q_OBJECT

public:
    /// Lists the data sources that the machine has.
    explicit frmODBCLogon(DataSources &dataSources, QWidget *parent = nullptr);

    /// Shows a connection; the fields are on when it has a data source.
    void setConnection(const OdbcConnection &connection);

    /// What the fields hold.
    [[nodiscard]] OdbcConnection connection() const;

private:
    struct Field
    {
        QLabel *label;
        QWidget *input;
    };

    void layOut();
    void listDataSources(DataSources &dataSources);
    void switchFields(bool isOn);
    void showSwitched();
    void addField(QGridLayout &grid, QLabel *label, QWidget *input, QLatin1String name);

    QPushButton *m_switch;
    QComboBox *m_dsn;
    QLineEdit *m_user;
    QLineEdit *m_db;
    QLineEdit *m_driver;
    QLineEdit *m_server;
    QLabel *m_notice;
    QList<Field> m_fields;
    /// The data source while the fields are off.
    QString m_keptDsn;
};
