#pragma once

#include <QDialog>

#include <array>

class QLineEdit;
class QRadioButton;

/// The prefix chooser: explains the prefixes of a line and writes the chosen one into its caller's field. The option
/// buttons are named OptionEq_0 to OptionEq_3.
class ConfigDialogPrefix final : public QDialog
{
    Q_OBJECT

public:
    /// @param prefix the caller's field
    ConfigDialogPrefix(QLineEdit &prefix, QWidget *parent);

private:
    [[nodiscard]] QString chosenPrefix() const;

    std::array<QRadioButton *, 4> m_options{};
};
