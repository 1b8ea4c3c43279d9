#pragma once

#include "platform/linux/LinuxFileAccess.h"
#include "tests/platform/InterruptedCalls.h"
#include "tests/support/Errors.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <memory>

/// A folder in which everything may be tried, on a file system that keeps attributes, with a state folder beside it. It
/// belongs to the ordinary user.
class FileWorld : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// The path of name in the folder that is tried in.
    [[nodiscard]] QByteArray at(const QByteArray &name) const { return folder() + '/' + name; }
    [[nodiscard]] QByteArray folder() const { return m_root + "/folder"; }
    [[nodiscard]] QByteArray stateFolder() const { return m_root + "/state"; }
    [[nodiscard]] QByteArray recoveryFolder() const { return m_root + "/state/ZentilConf/unfinished"; }

    /// The files of a program that has just been started.
    [[nodiscard]] std::unique_ptr<LinuxFileAccess> access() const;
    /// The same, with calls that go wrong.
    [[nodiscard]] std::unique_ptr<LinuxFileAccess> access(const std::shared_ptr<Interruption> &interruption) const;

    [[nodiscard]] QByteArray read(const QByteArray &path) const;
    void write(const QByteArray &path, QByteArrayView bytes) const;

    /// The number of the error that reading or writing raises; 0 for none.
    [[nodiscard]] int readError(const QByteArray &path) const;
    [[nodiscard]] int writeError(const QByteArray &path, QByteArrayView bytes = "new") const;

    /// Empties the folders and gives them back their rights.
    void clear() const;

private:
    std::unique_ptr<QTemporaryDir> m_temporary;
    QByteArray m_root;
};

/// Through the system, past what is tested.
void store(const QByteArray &path, const QByteArray &bytes);
[[nodiscard]] QByteArray bytesOf(const QByteArray &path);
[[nodiscard]] struct stat statusOf(const QByteArray &path);
[[nodiscard]] mode_t modeOf(const QByteArray &path);

/// Everything in a folder, sorted; nothing for a folder that is missing.
[[nodiscard]] QByteArrayList namesIn(const QByteArray &folder);

/// The names by which copies and drafts go that are in the way of nobody.
[[nodiscard]] QByteArrayList draftsIn(const QByteArray &folder);

[[nodiscard]] int openFiles();

/// Bytes of that length that a line, a page or another text of another seed does not repeat.
[[nodiscard]] QByteArray content(int length, unsigned seed);
