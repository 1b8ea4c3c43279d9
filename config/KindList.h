#pragma once

#include "settings/DropDownList.h"

enum class ItemKind : int;

/// The drop-down list of the kinds of items that can be added.
class KindList final : public DropDownList
{
    Q_OBJECT

public:
    explicit KindList(QWidget *parent = nullptr);

    /// A kind that is not available stays in the list but cannot be chosen.
    void setKindEnabled(ItemKind kind, bool isEnabled);

    void showPopup() override;

signals:
    /// @param name the kind's display name
    void chosen(const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};
