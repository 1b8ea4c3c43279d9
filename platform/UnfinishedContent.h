#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What a file was and what it is to become, as the copy that is kept while the file is written in place has it. The
/// copy begins with texts, each with a zero behind it, so that a person who finds it can tell what it is: what a copy
/// is for, the file's path, and the sizes of the two contents in bytes. These follow, the old one first.
struct UnfinishedContent
{
    QByteArray before;
    QByteArray after;

    /// What the copy of a file begins with. @param before the old content's size, @param after the new one's
    [[nodiscard]] static QByteArray heading(const QByteArray &path, qsizetype before, qsizetype after);

    /// The contents that a copy holds; nothing where bytes is not a whole copy.
    [[nodiscard]] static std::optional<UnfinishedContent> fromCopy(QByteArray bytes);

    /// True for bytes that a write of after over before can have left behind, and nothing else: each byte is the old
    /// one, the new one or, behind the old end, not yet written.
    [[nodiscard]] bool isCutOff(const QByteArray &bytes) const;
};

/// What a user is told when a write in place has failed and what was there could not be put back.
[[nodiscard]] QString keptCopyText(const QString &pathOfCopy);
