#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringList>

/// Cuts the bytes of a configuration file into lines while they arrive. CR LF, CR and LF end a line; empty lines at
/// the end are dropped. What cannot become a document is counted, not stored.
class LineReader final
{
public:
    /// The most that one document may hold, in bytes of its file.
    static constexpr qsizetype mostBytes = qsizetype(1) << 30;

    /// @param path the file's path, for errors
    /// @param maximumBytes the most that the file may hold
    explicit LineReader(const QString &path = {}, qsizetype maximumBytes = mostBytes);

    void take(QByteArrayView bytes);

    /// The lines, once all bytes are taken. None for an empty file.
    /// @throws RuntimeError InvalidCall when bytes came but every line is empty; Overflow, with the limit and the
    ///         file's count, when the file has more bytes, or more lines, than a document can hold
    [[nodiscard]] QStringList lines();

private:
    void endLine(QByteArrayView rest);

    QString m_path;
    qsizetype m_maximumBytes;
    QStringList m_lines;
    QByteArray m_pending;
    qsizetype m_count = 0;
    qsizetype m_emptyLines = 0;
    qsizetype m_bytes = 0;
    bool m_isAfterCr = false;
};
