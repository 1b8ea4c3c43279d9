#include "platform/windows/WindowsFileTypes.h"

#include <qt_windows.h>
#include <shlobj.h>

void WindowsFileTypes::associate(const QString &, const QString &)
{
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
}
