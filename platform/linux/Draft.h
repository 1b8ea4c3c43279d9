#pragma once

#include "platform/linux/FileHandle.h"

#include <QByteArray>

#include <optional>

/// A new file beside the one that it is going to replace. It has no name until it is complete, where the file system
/// can do that, so that a process that is killed leaves nothing behind; elsewhere its name begins with a dot. A draft
/// that does not get to its place is removed.
class Draft final
{
public:
    /// @param mode the new file's permissions, less the umask
    /// @return nothing where no file can be made in the folder because it may not be written
    /// @throws RuntimeError for every other failure
    [[nodiscard]] static std::optional<Draft> make(SystemCalls &calls, const QByteArray &folder, mode_t mode);

    Draft(Draft &&other) noexcept;
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;
    Draft &operator=(Draft &&) = delete;
    ~Draft();

    [[nodiscard]] FileHandle &file() { return m_file; }

    /// Puts the draft at target, in one step, over whatever is there.
    /// @return false where the system does not permit that; the target is then untouched
    /// @throws RuntimeError for every other failure
    [[nodiscard]] bool moveTo(const QByteArray &target);

private:
    Draft(SystemCalls &calls, FileHandle &&file, const QByteArray &name, bool isNamed);

    SystemCalls &m_calls;
    FileHandle m_file;
    QByteArray m_name;
    bool m_isNamed;
};
