#pragma once

#include <QCoreApplication>
#include <QLatin1String>

class ConfigListView;
class KindList;
class QCheckBox;
class QPushButton;
class QWidget;

/// The controls of a document window and where they stand: the list takes the room there is, the rest keeps its size.
class ConfigFormUi final
{
    Q_DECLARE_TR_FUNCTIONS(ConfigForm)

public:
    explicit ConfigFormUi(QWidget &form);

    ConfigListView *list;
    KindList *newItemList;
    QPushButton *edit;
    QPushButton *remove;
    QPushButton *moveUp;
    QPushButton *moveDown;
    QCheckBox *remoteConnectFlag;
    QPushButton *apply;
    QPushButton *close;

private:
    void layOut(QWidget &form);
};
