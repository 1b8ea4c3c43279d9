#pragma once

#include <QObject>

class ProductHelp;
class QWidget;

/// The control's property that holds the number of its topic in the help.
inline constexpr const char *helpContextProperty = "HelpContextID";

/// Opens the help at the topic of the control of form that has the focus.
/// @return the number of the topic; 0 when the control has none
quint32 ShowContextHelp(const QWidget &form, ProductHelp &help);

/// F1 in every window of the program. It is installed as an event filter of the application.
class ContextHelpKey final : public QObject
{
    Q_OBJECT

public:
    explicit ContextHelpKey(ProductHelp &help);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ProductHelp &m_help;
};
