#pragma once

#include "platform/Programs.h"

/// The programs that CreateProcess() finds.
class WindowsPrograms final : public Programs
{
public:
    /// @param program may hold variables of the environment ("%ProgramFiles%"), as paths in the registry do
    [[nodiscard]] bool start(const QString &program, const QStringList &arguments) override;

    /// The registry says which one it is.
    [[nodiscard]] QStringList systemInformationTools() const override { return {}; }
};
