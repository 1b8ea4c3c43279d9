#include "platform/linux/DesktopFiles.h"

#include <QByteArrayList>

namespace {

QByteArray valueBehind(const QByteArray &line, const QByteArray &key)
{
    const qsizetype sign = line.indexOf('=');
    return sign >= 0 && line.first(sign).trimmed() == key ? line.sliced(sign + 1).trimmed() : QByteArray();
}

/// A backslash of a text is two in the file.
QByteArray storedText(QByteArray text)
{
    return text.replace('\\', "\\\\");
}

/// One name in front of a list of names, in which it does not stand again.
QByteArray inFront(const QByteArray &name, const QByteArray &list)
{
    QByteArrayList names = list.split(';');
    names.removeAll(name);
    names.removeAll(QByteArray());
    names.prepend(name);
    return names.join(';') + ';';
}

/// The lines with the entry in front of what the group has for the type.
QByteArrayList withEntryInGroup(QByteArrayList lines, const QByteArray &group, const QByteArray &mimeType,
                                const QByteArray &entryName)
{
    bool isInside = false;
    qsizetype end = -1;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        const QByteArray line = lines[at].trimmed();
        if (line.startsWith('['))
            isInside = line == group;
        if (!isInside)
            continue;
        if (line.startsWith(mimeType) && line.sliced(mimeType.size()).trimmed().startsWith('=')) {
            lines[at] = mimeType + '=' + inFront(entryName, valueBehind(line, mimeType));
            return lines;
        }
        if (!line.isEmpty())
            end = at + 1;
    }
    if (end < 0) {
        if (!lines.isEmpty() && !lines.last().isEmpty())
            lines << QByteArray();
        lines << group;
        end = lines.size();
    }
    lines.insert(end, mimeType + '=' + entryName + ';');
    return lines;
}

} // namespace

QByteArray desktopCommand(const QByteArray &programPath)
{
    QByteArray quoted;
    for (const char c : programPath) {
        if (QByteArrayView("\"`$\\").contains(c))
            quoted += '\\';
        if (c == '%')
            quoted += '%';
        quoted += c;
    }
    return storedText('"' + quoted + "\" %F");
}

QByteArray entryForProgram(const QByteArray &entry, const QByteArray &programPath)
{
    QByteArrayList lines = entry.split('\n');
    for (QByteArray &line : lines) {
        if (line.startsWith("Exec="))
            line = "Exec=" + desktopCommand(programPath);
        else if (line.startsWith("TryExec="))
            line = "TryExec=" + storedText(programPath);
    }
    return lines.join('\n');
}

QByteArray entryText(const QByteArray &entry, const QByteArray &key)
{
    bool isInside = false;
    for (const QByteArray &line : entry.split('\n')) {
        if (line.startsWith('['))
            isInside = line.trimmed() == "[Desktop Entry]";
        const QByteArray value = isInside ? valueBehind(line, key) : QByteArray();
        if (!value.isEmpty())
            return value;
    }
    return {};
}

QByteArray withDefaultEntry(const QByteArray &list, const QByteArray &mimeType, const QByteArray &entryName)
{
    QByteArrayList lines = list.isEmpty() ? QByteArrayList() : list.split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    lines = withEntryInGroup(lines, "[Added Associations]", mimeType, entryName);
    lines = withEntryInGroup(lines, "[Default Applications]", mimeType, entryName);
    return lines.join('\n') + '\n';
}
