#include "editors/FlagText.h"

#include "config/ConfigLine.h"
#include "editors/ExtractOption.h"
#include "editors/FlagAlphabet.h"

namespace {

constexpr QChar comma = u',';

QString writtenLetters(const FlagAlphabet &alphabet, const QString &checked)
{
    QString written;
    for (const FlagLetter &each : alphabet.letters) {
        if (checked.contains(QLatin1Char(each.letter)))
            written += QLatin1Char(each.letter);
    }
    for (const FlagMacro &macro : alphabet.macros) {
        if (written == macro.letters)
            return macro.text;
    }
    return written;
}

void expandMacros(const FlagAlphabet &alphabet, QString &flags)
{
    for (const FlagMacro &macro : alphabet.macros) {
        if (macro.expanded == FlagMacro::Expanded::Anywhere)
            flags.replace(macro.text, macro.letters);
        else if (flags == macro.text)
            flags = macro.letters;
    }
}

QString takeLetters(const FlagAlphabet &alphabet, QString &flags)
{
    QString letters;
    for (const char &letter : alphabet.readOrder) {
        if (ExtractOption(flags, QLatin1String(&letter, 1), NotNumeric()) == 1)
            letters += QLatin1Char(letter);
    }
    return letters;
}

std::vector<FlagText::Option> takeOptions(const FlagAlphabet &alphabet, QString &flags,
                                          std::vector<FlagText::Option> options)
{
    options.resize(alphabet.options.size());
    for (size_t i = 0; i < options.size(); ++i) {
        options[i].text = ExtractOption(flags, alphabet.options[i].name, Numeric());
        // A box is only ever checked by reading: the text of another line does not clear it.
        options[i].isChecked |= !options[i].text.isEmpty();
    }
    return options;
}

} // namespace

QString buildFlags(const FlagAlphabet &alphabet, const FlagText &parts)
{
    QString flags = writtenLetters(alphabet, parts.letters);
    for (size_t i = 0; i < qMin(parts.options.size(), alphabet.options.size()); ++i) {
        if (parts.options[i].isChecked)
            flags += comma + alphabet.options[i].name + trimSpaces(parts.options[i].text);
    }
    if (alphabet.otherFlags == FlagAlphabet::OtherFlags::Appended)
        return flags + parts.otherFlags;
    if (!parts.otherFlags.isEmpty())
        flags += comma + parts.otherFlags;
    if (flags.startsWith(comma))
        flags.remove(0, 1);
    return flags;
}

FlagText parseFlags(const FlagAlphabet &alphabet, QString flags, const FlagText &before)
{
    expandMacros(alphabet, flags);
    FlagText parts;
    if (alphabet.readFirst == FlagAlphabet::ReadFirst::Letters)
        parts.letters = takeLetters(alphabet, flags);
    parts.options = takeOptions(alphabet, flags, before.options);
    if (alphabet.readFirst == FlagAlphabet::ReadFirst::Options)
        parts.letters = takeLetters(alphabet, flags);
    parts.otherFlags = flags.remove(comma);
    return parts;
}
