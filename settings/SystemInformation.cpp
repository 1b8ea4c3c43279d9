#include "settings/SystemInformation.h"

#include "platform/FileAccess.h"
#include "platform/Programs.h"
#include "registry/RegistryConstants.h"

#include <QByteArray>
#include <QStringList>

#include <algorithm>

using RegistryConstants::typeExpandableText;
using RegistryConstants::typeNumber;
using RegistryConstants::typeText;

namespace {

constexpr quint32 readerAccess = 0x2003F;
constexpr quint32 bufferSize = 1024;

/// The lowest byte comes first.
QString hexadecimalText(const QByteArray &bytes)
{
    quint32 number = 0;
    for (qsizetype at = std::min(bytes.size(), qsizetype(sizeof number)); at > 0; --at)
        number = number << 8U | static_cast<uchar>(bytes[at - 1]);
    return QStringLiteral("&h") + QString::number(number, 16).toUpper();
}

QString shownValue(const Registry &registry, quint32 type, const QByteArray &bytes)
{
    if (type == typeNumber)
        return hexadecimalText(bytes);
    // Whoever starts a program of that path replaces its variables.
    if (type == typeText || type == typeExpandableText)
        return registry.fromCodePage(bytes.constData());
    return {};
}

} // namespace

bool ReadRegistryValue(Registry &registry, Registry::Handle hive, const QString &path, const QString &name,
                       QString &text)
{
    text.clear();
    Registry::Handle key = 0;
    if (registry.RegOpenKeyExA(hive, registry.toCodePage(path), 0, readerAccess, &key) != Registry::Result::Success)
        return false;
    QByteArray buffer(bufferSize, '\0');
    quint32 type = 0;
    quint32 length = bufferSize;
    const Registry::Result result = registry.RegQueryValueExA(key, registry.toCodePage(name), &type,
                                                              reinterpret_cast<uchar *>(buffer.data()), &length);
    (void)registry.RegCloseKey(key);
    if (result != Registry::Result::Success)
        return false;
    text = shownValue(registry, type, buffer.first(length));
    return true;
}

QString systemInformationTool(Registry &registry, const FileAccess &files, const Programs &programs)
{
    QString path;
    if (ReadRegistryValue(registry, Registry::LocalMachine, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                          QStringLiteral("PATH"), path) &&
        !path.isEmpty())
        return path;
    QString folder;
    if (ReadRegistryValue(registry, Registry::LocalMachine,
                          QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"), QStringLiteral("MSINFO"),
                          folder)) {
        path = folder + QStringLiteral("\\MSINFO32.EXE");
        if (files.fileExists(path))
            return path;
    }
    return programs.systemInformationTools().value(0);
}
