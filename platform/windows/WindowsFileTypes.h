#pragma once

#include "platform/FileTypes.h"

/// The shell reads associations from the registry, but has to be told when they have changed.
class WindowsFileTypes final : public FileTypes
{
public:
    void associate(const QString &extension, const QString &programPath) override;
};
