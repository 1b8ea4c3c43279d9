#pragma once

#include <QDialog>

class FlagPanel;

/// The flag chooser: boxes for the flags of files and registry keys, for an editor that has only a field for them. It
/// is shown modally, with all boxes clear; QDialog::result() is then one of Result.
class ConfigDialogFlags final : public QDialog
{
    Q_OBJECT

public:
    enum Result : int { OK = 1, Cancel = 2 };

    explicit ConfigDialogFlags(QWidget *parent);

    /// Turns the controls into the flags text, keeps it and returns it.
    const QString &BuildFlags();

    /// The flags text that was built last.
    [[nodiscard]] const QString &flags() const { return m_flags; }

    void reject() override;

private:
    FlagPanel *m_panel;
    QString m_flags;
};
