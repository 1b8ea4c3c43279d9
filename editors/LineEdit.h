#pragma once

#include <QLineEdit>

/// A field for a part of a line, of any length.
class LineEdit final : public QLineEdit
{
    Q_OBJECT

public:
    LineEdit(QLatin1String name, QWidget *parent);

    /// The text, each line break as the blank that it is shown as: pasted text may hold some, and a line would fall
    /// apart at them. Everything else is as it was entered.
    [[nodiscard]] QString line() const;
};
