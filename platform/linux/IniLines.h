#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// The lines of an ini file, which a person may edit too: a line "[section]", below it lines "key=text". A control
/// character or a blank at either end of a text is written as "\u" and four hexadecimal digits, a backslash as two; a
/// backslash before anything else stands for itself. Lines that are none of these stay where they are.
class IniLines final
{
public:
    /// @param content the whole file, UTF-8
    explicit IniLines(const QByteArray &content);

    [[nodiscard]] QByteArray content() const;

    /// Nothing where there is no such key.
    [[nodiscard]] std::optional<QString> text(const QString &section, const QString &key) const;

    /// Changes the key's line, or adds one at the end of its section.
    void setText(const QString &section, const QString &key, const QString &text);

private:
    /// Where a key's line is; when there is none, where it belongs, and 0 where its section is missing too.
    struct Place
    {
        bool isFound;
        qsizetype line;
    };

    [[nodiscard]] Place find(const QString &section, const QString &key) const;

    QStringList m_lines;
};
