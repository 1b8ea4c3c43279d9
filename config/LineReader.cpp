#include "config/LineReader.h"

#include "config/RowList.h"
#include "platform/ByteText.h"
#include "platform/RuntimeError.h"

#include <algorithm>

LineReader::LineReader(const QString &path, qsizetype maximumBytes)
    : m_path(path)
    , m_maximumBytes(maximumBytes)
{
}

void LineReader::take(QByteArrayView bytes)
{
    m_bytes += bytes.size();
    while (!bytes.isEmpty()) {
        if (m_isAfterCr && bytes.front() == '\n')
            bytes = bytes.sliced(1);
        m_isAfterCr = false;
        const auto end = std::find_if(bytes.begin(), bytes.end(), [](char c) { return c == '\r' || c == '\n'; });
        if (end == bytes.end()) {
            if (m_bytes <= m_maximumBytes)
                m_pending += bytes;
            return;
        }
        m_isAfterCr = *end == '\r';
        const qsizetype length = end - bytes.begin();
        endLine(bytes.first(length));
        bytes = bytes.sliced(length + 1);
    }
}

QStringList LineReader::lines()
{
    endLine({});
    // Behind so many bytes, lines are not told apart any more: their number would be wrong.
    if (m_bytes > m_maximumBytes) {
        throw RuntimeError(RuntimeError::Overflow, m_path,
                           QStringLiteral("A document holds at most %1 bytes. This one has %2.")
                               .arg(QString::number(m_maximumBytes), QString::number(m_bytes)));
    }
    RowList::requireFit(m_count, m_path);
    // A file of empty lines only has always been refused: the search for a line that is not empty runs past the first.
    if (m_bytes > 0 && m_count == 0)
        throw RuntimeError(RuntimeError::InvalidCall, m_path, QStringLiteral("The file holds only empty lines."));
    return m_lines;
}

void LineReader::endLine(QByteArrayView rest)
{
    if (m_pending.isEmpty() && rest.isEmpty()) {
        ++m_emptyLines;
        return;
    }
    m_count += m_emptyLines + 1;
    if (m_count <= RowList::maximumRows && m_bytes <= m_maximumBytes) {
        for (; m_emptyLines > 0; --m_emptyLines)
            m_lines << QString();
        m_lines << (m_pending.isEmpty() ? decodeBytes(rest) : decodeBytes(m_pending.append(rest)));
    }
    m_emptyLines = 0;
    m_pending.clear();
}
