#pragma once

#include <QString>
#include <QStringList>

/// The programs of this machine, for starting them.
class Programs
{
public:
    Programs() = default;
    Programs(const Programs &) = delete;
    Programs &operator=(const Programs &) = delete;
    virtual ~Programs() = default;

    /// Starts a program in a window of its own and does not wait for its end.
    /// @param program its path, or a name that the system looks for where it looks for commands
    /// @return false when it cannot be started
    [[nodiscard]] virtual bool start(const QString &program, const QStringList &arguments = {}) = 0;

    /// The installed programs that show what the system consists of, the best first. None where the registry says which
    /// one it is.
    [[nodiscard]] virtual QStringList systemInformationTools() const = 0;
};
