#pragma once

#include <QStringList>

/// The stand-alone parser of lines and texts, with the rules that it has always had: its ParseLine splits at the last
/// space even inside quotes and cuts long flags short, unlike the document's own. It holds no state.
class ConfigParse final
{
public:
    /// As parseLine() with ParseRule::Older.
    void ParseLine(const QString &line, QString &prefix, QString &object, QString &flags) const;

    /// The lines of a whole text: CR LF, CR and LF end a line, empty lines at the end are dropped.
    /// @throws RuntimeError InvalidCall when every line is empty, and for the empty text
    [[nodiscard]] QStringList ParseFile(const QString &text) const;
};
