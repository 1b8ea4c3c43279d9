#pragma once

#include "platform/FileTypes.h"
#include "platform/RuntimeError.h"

#include <QList>
#include <QStringList>

#include <optional>

/// A desktop that remembers what was associated.
class FakeFileTypes final : public FileTypes
{
public:
    void associate(const QString &extension, const QString &programPath) override
    {
        if (error)
            throw *error;
        calls << QStringList{extension, programPath};
    }

    QList<QStringList> calls;
    /// Raised by every call while it is set.
    std::optional<RuntimeError> error;
};
