#include "tests/support/FakeFileAccess.h"

bool FakeFileAccess::fileExists(const QString &path) const
{
    return content.contains(path);
}

void FakeFileAccess::readFile(const QString &path, const TakeBytes &take)
{
    if (onAccess)
        onAccess();
    if (readError)
        throw *readError;
    if (!content.contains(path))
        throw RuntimeError(RuntimeError::FileNotFound, path);
    take(content[path]);
}

void FakeFileAccess::writeFile(const QString &path, QByteArrayView bytes)
{
    if (onAccess)
        onAccess();
    if (writeError)
        throw *writeError;
    ++writes;
    content[path] = bytes.toByteArray();
}
