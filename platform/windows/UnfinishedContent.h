#pragma once

#include <QByteArray>

#include <optional>

/// What a file was and what it is to become, as a copy that is kept while the file is written in place.
struct UnfinishedContent
{
    QByteArray target; ///< the file's path, for a person who finds the copy
    QByteArray before;
    QByteArray after;

    [[nodiscard]] QByteArray toBytes() const;
    /// Nothing where bytes is not a whole copy.
    [[nodiscard]] static std::optional<UnfinishedContent> fromBytes(QByteArray bytes);

    /// True for bytes that a write of after over before can have left behind, and nothing else: each byte is the old
    /// one, the new one or, behind the old end, not yet written.
    [[nodiscard]] bool isCutOff(const QByteArray &bytes) const;
};
