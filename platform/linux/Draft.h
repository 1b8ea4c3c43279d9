#pragma once

#include "platform/linux/FileHandle.h"

#include <QByteArray>

/// A new file beside the one that it is going to replace. It has no name until it is complete, where the file system
/// can do that; elsewhere, and while it is put over a file, its name begins with a dot. A draft that does not get to
/// its place is removed; one that a killed process has left, by the next draft of the same target.
class Draft final
{
public:
    /// @param folder the target's
    /// @param target where the draft is to go; errors name it
    /// @param mode the new file's permissions, less the umask
    /// @return a draft whose file is not open, with the error, where the folder may not be written
    /// @throws RuntimeError for every other failure
    [[nodiscard]] static Draft tryMake(SystemCalls &calls, const QByteArray &folder, const QByteArray &target,
                                       mode_t mode);

    Draft(Draft &&other) noexcept;
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;
    Draft &operator=(Draft &&) = delete;
    ~Draft();

    [[nodiscard]] FileHandle &file() { return m_file; }

    /// Puts the draft at its target, in one step, where nothing is yet.
    /// @return false when something has come there in the meantime
    /// @throws RuntimeError for every failure
    [[nodiscard]] bool moveToNewTarget();

    /// Puts the draft at its target, in one step, over whatever is there.
    /// @return false where the system does not permit that; the target is then untouched
    /// @throws RuntimeError for every other failure
    [[nodiscard]] bool moveOverTarget();

private:
    Draft(SystemCalls &calls, FileHandle &&file, const QByteArray &target, const QByteArray &name, bool isNamed);
    [[nodiscard]] static Draft tryMakeNamed(SystemCalls &calls, const QByteArray &folder, const QByteArray &target,
                                            mode_t mode);
    [[nodiscard]] int giveName();
    [[nodiscard]] int link(const QByteArray &name);
    [[nodiscard]] int rename();

    SystemCalls &m_calls;
    FileHandle m_file;
    QByteArray m_target;
    QByteArray m_name;
    bool m_isNamed;
};
