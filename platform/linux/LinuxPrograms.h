#pragma once

#include "platform/Programs.h"

/// The programs in the folders of $PATH.
class LinuxPrograms final : public Programs
{
public:
    [[nodiscard]] bool start(const QString &program, const QStringList &arguments) override;
    [[nodiscard]] QStringList systemInformationTools() const override;
};
