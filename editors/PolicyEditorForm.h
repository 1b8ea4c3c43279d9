#pragma once

#include "editors/FlagEditorForm.h"

/// The base of the editors for the lines that name nothing: their object is one fixed word. They have no prefix, need
/// no flags, and close with a new item too, since a second line of their kind would say nothing new.
class PolicyEditorForm : public FlagEditorForm
{
    Q_OBJECT

protected:
    PolicyEditorForm(QLatin1String name, const QString &title, QLatin1String object, Messages &messages,
                     QWidget *parent);

    /// The object of a line is not looked at: the word is written in its place.
    [[nodiscard]] QString object() const final { return m_object; }
    [[nodiscard]] bool acceptsFlags(const QString &) final { return true; }

private:
    QLatin1String m_object;
};
