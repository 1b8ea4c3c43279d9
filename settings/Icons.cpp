#include "settings/Icons.h"

#include "settings/LateIcon.h"

QIcon themedIcon(QLatin1String name)
{
    return QIcon(new LateIcon(name));
}
