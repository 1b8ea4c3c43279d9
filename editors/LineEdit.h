#pragma once

#include <QLineEdit>

/// A field for a part of a line, of any length.
class LineEdit final : public QLineEdit
{
    Q_OBJECT

public:
    LineEdit(QLatin1String name, QWidget *parent);

    /// Shows text as shownText() has it. What the user leaves of it comes back from line() as it was.
    void setLine(const QString &text);

    /// The text, with each line break that was entered as the blank that it is shown as: pasted text may hold some, and
    /// a line would fall apart at them. Everything else is as it was set or entered.
    [[nodiscard]] QString line() const;

private:
    QString m_line;
};
