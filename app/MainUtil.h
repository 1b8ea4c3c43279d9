#pragma once

#include <QString>

class QLabel;
class QStatusBar;

/// The status line of the main window.
class MainUtil final
{
public:
    /// Makes the first panel of the status bar.
    explicit MainUtil(QStatusBar &statusBar);

    /// The text of the first panel, as plain text.
    [[nodiscard]] QString status() const;
    void setStatus(const QString &text);

private:
    QLabel *m_firstPanel;
};
