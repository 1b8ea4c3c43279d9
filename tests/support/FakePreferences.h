#pragma once

#include "platform/RuntimeError.h"
#include "settings/DocumentPreferences.h"

#include <optional>

/// The settings of documents, as a test sets them.
class FakePreferences final : public DocumentPreferences
{
public:
    [[nodiscard]] qint16 Edit() const override { return read(edit); }
    [[nodiscard]] qint16 remote() const override { return read(remoteConnect); }

    qint16 edit = 0;
    qint16 remoteConnect = 0;
    /// Raised by every read while it is set.
    std::optional<RuntimeError> error;

private:
    [[nodiscard]] qint16 read(qint16 value) const
    {
        if (error)
            throw *error;
        return value;
    }
};
