#pragma once

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"

#include <QHash>

#include <functional>
#include <optional>

/// Files in memory, which can be told to fail.
class FakeFileAccess final : public FileAccess
{
public:
    [[nodiscard]] bool fileExists(const QString &path) const override;
    void readFile(const QString &path, const TakeBytes &take) override;
    void writeFile(const QString &path, QByteArrayView bytes) override;

    QHash<QString, QByteArray> content;
    /// Raised by every read or write while it is set; nothing is read or written then.
    std::optional<RuntimeError> readError;
    std::optional<RuntimeError> writeError;
    int writes = 0;
    /// Run at the begin of every read or write.
    std::function<void()> onAccess;
};
