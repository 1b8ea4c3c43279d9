#pragma once

#include <QString>

/// What an item editor sees of the document that opened it.
class ItemDocument
{
public:
    ItemDocument() = default;
    ItemDocument(const ItemDocument &) = delete;
    ItemDocument &operator=(const ItemDocument &) = delete;
    virtual ~ItemDocument() = default;

    /// Takes a line apart. @param prefix written only when the line has one; pass it in empty
    /// @throws RuntimeError InvalidCall when all that is left of the object is one double quote
    virtual void ParseLine(const QString &line, QString &prefix, QString &object, QString &flags) const = 0;

    /// Asks for a connection to the remote host for one of its drives ("C:"). @return the path at which the drive can
    ///     be looked at; empty when there is no such connection
    [[nodiscard]] virtual QString TryRemoteConnect(const QString &drive) const = 0;

    /// Inserts a line put together from these before the current row, or at the end when no row is current.
    /// @throws RuntimeError Overflow when the document is full
    virtual void ItemAddFile(const QString &object, const QString &prefix, const QString &flags) = 0;

    /// Replaces the line of a row. @throws RuntimeError InvalidCall when there is no such row any more
    virtual void ItemChangeFile(const QString &object, const QString &prefix, const QString &flags, qint16 row) = 0;
};
