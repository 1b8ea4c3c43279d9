#include "platform/windows/WindowsPrograms.h"

#include "platform/windows/WindowsCalls.h"

#include <QProcess>

#include <vector>

namespace {

QString expanded(const QString &text)
{
    const DWORD size = ExpandEnvironmentStringsW(wide(text), nullptr, 0);
    std::vector<wchar_t> buffer(size);
    const DWORD written = ExpandEnvironmentStringsW(wide(text), buffer.data(), size);
    return written == 0 || written > size ? text : QString::fromWCharArray(buffer.data());
}

} // namespace

bool WindowsPrograms::start(const QString &program, const QStringList &arguments)
{
    return QProcess::startDetached(expanded(program), arguments);
}
