#include "config/UndoEvent.h"

#include "platform/RuntimeError.h"

void UndoEvent::Add(qint16 line, qint16 eventType, const QString &text)
{
    m_records.resize(static_cast<size_t>(Count()));
    m_records.push_back({line, eventType, text});
}

const UndoEvent::Record &UndoEvent::at(int index) const
{
    static const Record neverWritten;
    if (index == 0)
        return neverWritten;
    if (index < 0 || index > Max())
        throw RuntimeError(RuntimeError::InvalidCall);
    return m_records[static_cast<size_t>(index)];
}
