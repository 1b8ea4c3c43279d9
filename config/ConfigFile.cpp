#include "config/ConfigFile.h"

#include "config/DocumentShell.h"
#include "config/LineReader.h"
#include "platform/ByteText.h"
#include "platform/FileAccess.h"

ConfigFile::ConfigFile(FileAccess &files, DocumentShell &shell)
    : m_files(files)
    , m_shell(shell)
{
}

void ConfigFile::SetInfo(const QString &path)
{
    m_path = path;
}

QString ConfigFile::Title() const
{
    return QStringLiteral("Configuration");
}

QString ConfigFile::GetRemote(const QString &) const
{
    return {};
}

QString ConfigFile::TryRemoteConnect(const QString &, const QString &, const QString &, const QString &) const
{
    return {};
}

QStringList ConfigFile::GetFile() const
{
    LineReader reader(m_path);
    m_files.readFile(m_path, [&reader](QByteArrayView bytes) { reader.take(bytes); });
    return reader.lines();
}

void ConfigFile::SetFile(const QString &text, int, qint16 &success)
{
    if (m_path.isEmpty())
        m_shell.SaveAs();
    else
        m_files.writeFile(m_path, encodeText(text));
    success = 1;
}
