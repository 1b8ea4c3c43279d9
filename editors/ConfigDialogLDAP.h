#pragma once

#include "editors/FlagEditorForm.h"

class Directory;
class PasswordScrambler;
class QComboBox;
struct EditorServices;

/// The editor for an entry of a directory service, or for several by a query.
class ConfigDialogLDAP final : public FlagEditorForm
{
    Q_OBJECT

public:
    ConfigDialogLDAP(const EditorServices &services, QWidget *parent);

    void SetDefaultItem() override;

    /// Puts a value, 0 or 1, into flag_1, flag_2 and flag_XD.
    void SetAllFlags(int value);

protected:
    [[nodiscard]] QString object() const override;
    void showPrefix(const QString &prefix) override;
    [[nodiscard]] QString prefix() const override;
    [[nodiscard]] bool acceptsFlags(const QString &flags) override;

private:
    void addPrefixes();
    void browse();

    Directory &m_directory;
    PasswordScrambler &m_scrambler;
    QComboBox *m_preBox;
    LineEdit *m_objectName;
    FlagPanel *m_flags;
};
