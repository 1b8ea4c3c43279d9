#include "config/ConfigFormUi.h"

#include "config/ConfigListView.h"
#include "config/KindList.h"
#include "settings/Icons.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int spaceAboveButtons = 6;

QPushButton *createButton(QWidget &form, QLatin1String name, const QString &caption, const QString &toolTip,
                          QLatin1String icon)
{
    auto *button = new QPushButton(caption, &form);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    button->setIcon(themedIcon(icon));
    button->setAutoDefault(false);
    return button;
}

} // namespace

ConfigFormUi::ConfigFormUi(QWidget &form)
    : list(new ConfigListView(&form))
    , newItemList(new KindList(&form))
    , edit(createButton(form, QLatin1String("EditButton"), tr("E&dit"),
                        QStringLiteral("Edit the selected item. You can also double-click on an item to edit it"),
                        QLatin1String("edit")))
    , remove(createButton(form, QLatin1String("RemoveButton"), tr("&Remove"),
                          QStringLiteral("Remove the selected item from the configuration"),
                          QLatin1String("edit-delete")))
    , moveUp(createButton(form, QLatin1String("MoveUpButton"), tr("Move &up"), tr("Move the selected items up"),
                          QLatin1String("go-up")))
    , moveDown(createButton(form, QLatin1String("MoveDownButton"), tr("Move dow&n"), tr("Move the selected items down"),
                            QLatin1String("go-down")))
    , remoteConnectFlag(new QCheckBox(tr("Remote connec&tion"), &form))
    , apply(createButton(form, QLatin1String("ApplyButton"), tr("Appl&y"),
                         QStringLiteral("Save changes the the database"), QLatin1String("document-save")))
    , close(createButton(form, QLatin1String("CloseButton"), tr("&Close"),
                         QStringLiteral("Close configuration without saving changes"), QLatin1String("window-close")))
{
    list->setObjectName(QStringLiteral("ConfigList"));
    list->setAccessibleName(tr("Configuration lines"));
    newItemList->setObjectName(QStringLiteral("NewItemList"));
    newItemList->setToolTip(QStringLiteral("Select one of the following to add items of the selected type"));
    remoteConnectFlag->setObjectName(QStringLiteral("RemoteConnectFlag"));
    remoteConnectFlag->setEnabled(false);
    remoteConnectFlag->hide();
    layOut(form);
}

void ConfigFormUi::layOut(QWidget &form)
{
    auto *newItemLabel = new QLabel(tr("&Add item:"), &form);
    newItemLabel->setObjectName(QStringLiteral("lblNewItemList"));
    newItemLabel->setBuddy(newItemList);

    auto *column = new QVBoxLayout;
    column->addWidget(newItemLabel);
    column->addWidget(newItemList);
    column->addSpacing(spaceAboveButtons);
    QWidget *previous = newItemList;
    for (QWidget *next :
         std::initializer_list<QWidget *>{edit, remove, moveUp, moveDown, remoteConnectFlag, apply, close}) {
        if (next == apply)
            column->addStretch();
        column->addWidget(next);
        QWidget::setTabOrder(previous, next);
        previous = next;
    }

    auto *layout = new QHBoxLayout(&form);
    layout->addWidget(list, 1);
    layout->addLayout(column);
}
