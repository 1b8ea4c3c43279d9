#include "platform/linux/IniUserSettings.h"

#include "platform/ByteText.h"
#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"

#include <QDeadlineTimer>
#include <QStringList>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>

namespace {

constexpr int lockPatienceMs = 2000;
constexpr int lockPollMs = 5;

QString escaped(const QString &text, QStringView special = {})
{
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar c = text[at];
        const bool isEdge = at == 0 || at == text.size() - 1;
        if (c == u'\\')
            result += QStringLiteral("\\\\");
        else if (c < u' ' || special.contains(c) || (c.isSpace() && isEdge))
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            result += c;
    }
    return result;
}

QString unescaped(QStringView text)
{
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QStringView rest = text.sliced(at);
        bool isCode = false;
        const ushort code = rest.startsWith(u"\\u") && rest.size() >= 6 ? rest.sliced(2, 4).toUShort(&isCode, 16) : 0;
        result += isCode ? QChar(code) : text[at];
        if (isCode)
            at += 5;
        else if (rest.startsWith(u"\\\\"))
            ++at;
    }
    return result;
}

/// The lines of an ini file. Whoever edits them keeps the lines that it does not know.
class IniLines final
{
public:
    explicit IniLines(const QByteArray &content)
        : m_lines(decodeBytes(content).split(u'\n'))
    {
        if (m_lines.last().isEmpty())
            m_lines.removeLast();
    }

    [[nodiscard]] QByteArray content() const { return encodeText(m_lines.join(u'\n') + u'\n'); }

    [[nodiscard]] std::optional<QString> text(const QString &section, const QString &key) const
    {
        const Place place = find(section, key);
        if (!place.isFound)
            return std::nullopt;
        const QStringView line(m_lines[place.line]);
        return unescaped(line.sliced(line.indexOf(u'=') + 1).trimmed());
    }

    void setText(const QString &section, const QString &key, const QString &text)
    {
        const Place place = find(section, key);
        const QString line = escaped(key, u"=[];#") + u'=' + escaped(text);
        if (place.isFound)
            m_lines[place.line] = line;
        else if (place.line > 0)
            m_lines.insert(place.line, line);
        else
            m_lines << u'[' + escaped(section, u"]") + u']' << line;
    }

private:
    /// Where a key's line is; when there is none, where it belongs, and 0 where its section is missing too.
    struct Place
    {
        bool isFound;
        qsizetype line;
    };

    [[nodiscard]] Place find(const QString &section, const QString &key) const
    {
        bool isInside = false;
        qsizetype end = 0;
        for (qsizetype at = 0; at < m_lines.size(); ++at) {
            const QStringView line = QStringView(m_lines[at]).trimmed();
            const qsizetype sign = line.indexOf(u'=');
            if (line.startsWith(u'[') && line.endsWith(u']'))
                isInside = unescaped(line.sliced(1, line.size() - 2)) == section;
            else if (isInside && sign >= 0 && unescaped(line.first(sign).trimmed()) == key)
                return {true, at};
            if (isInside && !line.isEmpty())
                end = at + 1;
        }
        return {false, end};
    }

    QStringList m_lines;
};

/// Keeps other programs of this kind from storing, for as long as it lives.
class FolderLock final
{
public:
    explicit FolderLock(const std::filesystem::path &folder)
        : m_folder(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        const QDeadlineTimer deadline(lockPatienceMs);
        // Some file systems have no locks; that is no reason to store nothing.
        while (m_folder >= 0 && flock(m_folder, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK && !m_isTooLate) {
            QThread::msleep(lockPollMs);
            m_isTooLate = deadline.hasExpired();
        }
    }
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;
    ~FolderLock()
    {
        if (m_folder >= 0)
            close(m_folder);
    }

    [[nodiscard]] bool isTooLate() const { return m_isTooLate; }

private:
    int m_folder;
    bool m_isTooLate = false;
};

} // namespace

IniUserSettings::IniUserSettings(FileAccess &files, const QString &file)
    : m_files(files)
    , m_file(file)
{
}

QString IniUserSettings::GetSetting(const QString &section, const QString &key, const QString &absent) const
{
    try {
        return IniLines(content()).text(section, key).value_or(absent);
    } catch (const RuntimeError &) {
        return absent;
    }
}

bool IniUserSettings::SaveSetting(const QString &section, const QString &key, const QString &text)
{
    const std::filesystem::path folder = std::filesystem::path(encodeText(m_file).toStdString()).parent_path();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        return false;
    const FolderLock lock(folder);
    if (lock.isTooLate())
        return false;
    try {
        IniLines lines(content());
        if (lines.text(section, key) != text) {
            lines.setText(section, key, text);
            m_files.writeFile(m_file, lines.content());
        }
        return true;
    } catch (const RuntimeError &) {
        return false;
    }
}

/// Nothing for a file that is not there. @throws RuntimeError for one that cannot be read
QByteArray IniUserSettings::content() const
{
    QByteArray bytes;
    try {
        m_files.readFile(m_file, [&bytes](QByteArrayView piece) { bytes += piece; });
    } catch (const RuntimeError &error) {
        if (error.number() != RuntimeError::FileNotFound && error.number() != RuntimeError::PathNotFound)
            throw;
    }
    return bytes;
}
