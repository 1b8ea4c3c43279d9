#include "settings/WidenDropDown.h"

#include <QAbstractItemView>
#include <QComboBox>

#include <algorithm>

void WidenDropDown(QComboBox &list)
{
    constexpr int besideTheText = 30;

    const QFontMetrics metrics(list.font());
    int widest = 0;
    for (int index = 0; index < list.count(); ++index)
        widest = std::max(widest, metrics.horizontalAdvance(list.itemText(index)));
    list.view()->setMinimumWidth(widest + besideTheText);
}
