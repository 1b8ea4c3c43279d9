#include "registry/clsValue.h"

#include "platform/RuntimeError.h"

clsValue::clsValue(const QString &name, const QByteArray &data, quint32 type)
    : m_name(name)
    , m_data(data)
    , m_type(type)
{
}

quint8 clsValue::Data(qsizetype index) const
{
    return static_cast<quint8>(m_data[offsetOf(index)]);
}

void clsValue::Data(qsizetype index, quint8 byte)
{
    m_data[offsetOf(index)] = static_cast<char>(byte);
}

QString clsValue::DataString() const
{
    if (m_text.isEmpty())
        m_text = QString::fromLatin1(m_data);
    return m_text;
}

void clsValue::SetData(const QVariant &data)
{
    if (data.typeId() == QMetaType::QString)
        m_data = data.toString().toLatin1();
    else if (data.typeId() == QMetaType::QByteArray)
        m_data = data.toByteArray();
}

qsizetype clsValue::offsetOf(qsizetype index) const
{
    if (index < 1 || index > m_data.size())
        throw RuntimeError(RuntimeError::InvalidCall);
    return index - 1;
}
