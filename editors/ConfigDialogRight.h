#pragma once

#include "editors/FlagEditorForm.h"

class QCheckBox;
class QTreeWidget;
struct EditorServices;

/// The editor for a line that names rights and privileges whose holders are monitored, or all of them. It has no prefix
/// and needs no flags.
class ConfigDialogRight final : public FlagEditorForm
{
    Q_OBJECT

public:
    ConfigDialogRight(const EditorServices &services, QWidget *parent);

    void SetDefaultItem() override;

protected:
    void showObject(const QString &object) override;
    [[nodiscard]] QString object() const override;
    [[nodiscard]] bool acceptsFlags(const QString &) override { return true; }

private:
    void addRights();
    void addRightsLabel(const QString &name, const QString &text, QWidget &buddy);

    QCheckBox *m_allRights;
    QTreeWidget *m_rightsList;
    LineEdit *m_objectName;
};
