#pragma once

#include "settings/OptionValues.h"

#include <QDialog>

#include <array>

class Config;
class DataSources;
class frmODBCLogon;
class Messages;
class Programs;
class QBoxLayout;
class QCheckBox;
class QLineEdit;
class QRadioButton;
class QTabWidget;

/// The options: the settings of this machine, on pages. Nothing is written until Apply or OK.
class frmOptions final : public QDialog
{
    Q_OBJECT

public:
    /// What the dialog uses and somebody else owns.
    struct Services
    {
        Config &config;
        DataSources &dataSources;
        Programs &programs;
        Messages &messages;
    };

    /// Shows the settings. One that cannot be read is shown with its default, of which the user is told: here it can be
    /// set right.
    explicit frmOptions(const Services &services, QWidget *parent = nullptr);

    /// Writes every field back and tells the open windows. When an interval is no number, nothing is written and its
    /// field is shown; nor is anything written when the settings could not be read before and can be now: then they
    /// are shown.
    /// @throws RuntimeError TypeMismatch or Overflow for an interval, DeviceError for settings that are shown now; and
    ///         as applyOptions() does
    void Apply();

private:
    static constexpr int pageCount = 4;

    [[nodiscard]] QWidget *createPages();
    void fillGeneralPage(QBoxLayout &page);
    void fillRefreshPage(QBoxLayout &page);
    [[nodiscard]] QLineEdit *createInterval(QLatin1String name);
    [[nodiscard]] QBoxLayout *createButtons();
    void connectKeys();

    void Form_Load();
    void requireSeen();
    void cmdApply_Click();
    void cmdOK_Click();
    void Control_Click();
    void selectTab(int step);
    [[nodiscard]] qint32 intervalOf(QLineEdit &field);

    Services m_services;
    /// The registry has kept settings from being read: their fields have defaults.
    bool m_isUnread = false;
    QTabWidget *m_tabs = nullptr;
    std::array<QWidget *, pageCount> m_pages{};
    QCheckBox *m_autoStart = nullptr;
    QCheckBox *m_remote = nullptr;
    std::array<QRadioButton *, 2> m_defaultEdit{};
    QLineEdit *m_refreshHost = nullptr;
    QLineEdit *m_refreshCommand = nullptr;
    QLineEdit *m_refreshProp = nullptr;
    frmODBCLogon *m_logon = nullptr;
};
