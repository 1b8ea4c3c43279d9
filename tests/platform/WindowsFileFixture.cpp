#include "tests/platform/WindowsFileFixture.h"

#include "tests/support/Errors.h"

#include <QDir>
#include <QFile>

#include <utility>

QString WindowsFileFixture::path(const QString &name) const
{
    return QDir::toNativeSeparators(m_folder.filePath(name));
}

WindowsFileAccess WindowsFileFixture::access(std::unique_ptr<WindowsCalls> calls) const
{
    return {std::move(calls), QDir::toNativeSeparators(m_recovery.filePath(QStringLiteral("a/b")))};
}

QByteArray WindowsFileFixture::read(const QString &path) const
{
    QByteArray bytes;
    access().readFile(path, [&bytes](QByteArrayView piece) { bytes += piece; });
    return bytes;
}

int WindowsFileFixture::readError(const QString &path) const
{
    return errorNumberOf([&] { (void)read(path); });
}

int WindowsFileFixture::writeError(const QString &path) const
{
    return errorNumberOf([&] { access().writeFile(path, "new"); });
}

QStringList WindowsFileFixture::names() const
{
    return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

int WindowsFileFixture::copies() const
{
    return static_cast<int>(QDir(m_recovery.filePath(QStringLiteral("a/b"))).entryList(QDir::Files).size());
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("<no file>");
}

void store(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}
