#pragma once

#include "editors/ItemEditorForm.h"

class FlagPanel;
struct FlagAlphabet;

/// The base of the editors whose flags have controls of their own. What a kind does in another way it overrides: how
/// the object and the prefix are shown and taken from the controls, and which flags it requires.
class FlagEditorForm : public ItemEditorForm
{
    Q_OBJECT

public:
    /// Turns the controls into the flags text, keeps it and returns it.
    const QString &BuildFlags();

protected:
    using ItemEditorForm::ItemEditorForm;

    /// The field ObjectName, with Label1.
    LineEdit *addObjectField(const QString &label, const QString &toolTip = {});
    /// The field Prefix, with Label2.
    void addPrefix();
    /// The controls of an alphabet; OtherFlags has Label3.
    FlagPanel *addFlags(const FlagAlphabet &alphabet);

    virtual void showObject(const QString &object);
    /// The object with everything that belongs to the kind, ready to be stored.
    [[nodiscard]] virtual QString object() const;

    /// A form without a prefix shows none and gives an empty one.
    virtual void showPrefix(const QString &prefix);
    [[nodiscard]] virtual QString prefix() const;

    /// Whether the item may be handed to the document with these flags. The user is told when not.
    [[nodiscard]] virtual bool acceptsFlags(const QString &flags);

    void showItem(const QString &line) final;
    [[nodiscard]] std::optional<Item> collectItem() final;

private:
    LineEdit *m_objectName = nullptr;
    LineEdit *m_prefix = nullptr;
    FlagPanel *m_panel = nullptr;
    QString m_flags;
};
