#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

/// One value as it was read from a key: a copy, which changes nothing in the registry. Its bytes count from 1.
class clsValue final
{
public:
    clsValue() = default;
    clsValue(const QString &name, const QByteArray &data, quint32 type);

    /// The value's name for one that was read by its position. One that was read by its name has the untouched buffer
    /// of 255 blanks: who asks by name knows it.
    [[nodiscard]] const QString &Name() const { return m_name; }

    /// The system's type, see RegistryConstants.
    [[nodiscard]] quint32 Type() const { return m_type; }

    [[nodiscard]] qsizetype size() const { return m_data.size(); }

    /// The byte at a position from 1 to size(). @throws RuntimeError InvalidCall for any other position
    [[nodiscard]] quint8 Data(qsizetype index) const;
    void Data(qsizetype index, quint8 byte);

    /// A character for each byte, of the same code: also for the zero that ends many texts. Once it has given some
    /// text, it keeps giving that, whatever becomes of the data; an empty text is made anew each time.
    [[nodiscard]] QString DataString() const;

    /// Takes the characters' 8-bit codes, or the bytes, as data. Anything but a text or a byte array is ignored.
    void SetData(const QVariant &data);

private:
    [[nodiscard]] qsizetype offsetOf(qsizetype index) const;

    QString m_name;
    QByteArray m_data;
    quint32 m_type = 0;
    mutable QString m_text;
};
