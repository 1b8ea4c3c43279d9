#pragma once

#include "platform/windows/WindowsFileAccess.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

/// A folder in which everything may be tried, and another one where copies are kept.
class WindowsFileFixture : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString &name = QStringLiteral("server.zcf")) const;

    /// The files of a program that has just been started.
    [[nodiscard]] WindowsFileAccess
    access(std::unique_ptr<WindowsCalls> calls = std::make_unique<WindowsCalls>()) const;

    [[nodiscard]] QByteArray read(const QString &path) const;

    /// The number of the error that reading or writing raises; 0 for none.
    [[nodiscard]] int readError(const QString &path) const;
    [[nodiscard]] int writeError(const QString &path) const;

    /// The files in the folder, hidden ones as well.
    [[nodiscard]] QStringList names() const;
    /// How many copies of files that are written in place are kept.
    [[nodiscard]] int copies() const;

private:
    QTemporaryDir m_folder;
    QTemporaryDir m_recovery;
};

/// Through the system, past what is tested. A file that is not there reads as "<no file>".
[[nodiscard]] QByteArray bytesOf(const QString &path);
void store(const QString &path, const QByteArray &bytes);
