#pragma once

#include "config/ConfigLine.h"
#include "config/ItemDocument.h"
#include "platform/RuntimeError.h"

#include <QMap>
#include <QStringList>

#include <optional>

/// A document that is nothing but rows. New ones come at the end.
class FakeDocument final : public ItemDocument
{
public:
    void ParseLine(const QString &line, QString &prefix, QString &object, QString &flags) const override
    {
        parseLine(line, ParseRule::Document, prefix, object, flags);
    }

    [[nodiscard]] QString TryRemoteConnect(const QString &drive) const override
    {
        askedDrives << drive;
        return connections.value(drive);
    }

    void ItemAddFile(const QString &object, const QString &prefix, const QString &flags) override
    {
        if (error)
            throw *error;
        rows << assembleLine(object, prefix, flags, FlagsSpace::Yes);
    }

    void ItemChangeFile(const QString &object, const QString &prefix, const QString &flags, qint16 row) override
    {
        if (error)
            throw *error;
        if (row < 0 || row >= rows.size())
            throw RuntimeError(RuntimeError::InvalidCall);
        rows[row] = assembleLine(object, prefix, flags, FlagsSpace::Yes);
    }

    QStringList rows;
    /// Where the remote host's drives are to be looked at, by drive.
    QMap<QString, QString> connections;
    /// The drives that a connection was asked for.
    mutable QStringList askedDrives;
    /// Raised by every change while it is set; nothing is changed then.
    std::optional<RuntimeError> error;
};
