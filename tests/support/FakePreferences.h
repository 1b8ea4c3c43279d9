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
    [[nodiscard]] ListFont listFont() const override { return read(font); }
    void storeListFont(const QString &family, qint16 size) override { font = read(ListFont{family, size}); }

    qint16 edit = 0;
    qint16 remoteConnect = 0;
    ListFont font;
    /// Raised by every read and write while it is set.
    std::optional<RuntimeError> error;

private:
    template<class Value>
    [[nodiscard]] Value read(const Value &value) const
    {
        if (error)
            throw *error;
        return value;
    }
};
