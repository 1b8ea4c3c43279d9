#include "tests/editors/PlainFlags.h"

namespace plain {

// clang-format off
const Flags file             {"tcamvsniogpz12",            "tcamvsniopgz12",            {"$(A)", "tcmvsniogpz2", "$(LOG)", "tcnogpz"}, false, {"EVT"},      false};
const Flags registry         {"ckmogpz12",                 "ckmopgz12",                 {"$(RA)", "ckmogpz2"},                         false, {"EVT", "G"}, false};
const Flags user             {"ncCdjhspwlSoaebxmugMrRfLO", "ncCdjhspwlSoaebxmugMrRfLO", {"$(UA)", "ncCdjhspwlSoebxmugMrRfLO"},         true,  {"EVT"},      false};
const Flags group            {"ncgm",                      "ncgm",                      {"$(GA)", "ncgm"},                             false, {"EVT"},      false};
const Flags userRight        {"c",                         "c",                         {},                                            false, {},           false};
const Flags accountPolicy    {"cp",                        "cp",                        {},                                            false, {"EVT"},      true};
const Flags auditPolicy      {"",                          "",                          {},                                            false, {"EVT"},      false};
const Flags directoryService {"12",                        "12",                        {},                                            false, {"D"},        false};
// clang-format on

namespace {

QString charAt(const QString &text, int position)
{
    return position >= 1 && position <= text.size() ? QString(text[position - 1]) : QString();
}

QString left(const QString &text, int length)
{
    QString result;
    for (int position = 1; position <= length; ++position)
        result += charAt(text, position);
    return result;
}

QString from(const QString &text, int start)
{
    QString result;
    for (int position = start; position <= text.size(); ++position)
        result += charAt(text, position);
    return result;
}

/// 0 when it is not there.
int find(const QString &text, const QString &name, int start = 1)
{
    for (int position = start; position + name.size() - 1 <= text.size(); ++position) {
        if (left(from(text, position), int(name.size())) == name)
            return position;
    }
    return 0;
}

QString replaceAll(QString text, const QString &what, const QString &with)
{
    int position = find(text, what);
    while (position != 0) {
        text = left(text, position - 1) + with + from(text, position + int(what.size()));
        position = find(text, what, position + int(with.size()));
    }
    return text;
}

bool isDigit(const QString &character)
{
    return !character.isEmpty() && QString("0123456789").contains(character);
}

QString extractNumber(QString &text, const QString &name)
{
    const int found = find(text, name);
    if (found == 0)
        return "";
    int end = found + int(name.size());
    QString number;
    while (isDigit(charAt(text, end)) || (charAt(text, end) == "-" && isDigit(charAt(text, end + 1)))) {
        number += charAt(text, end);
        ++end;
    }
    text = left(text, found - 1) + from(text, end);
    return number;
}

bool extractLetter(QString &text, const QString &letter)
{
    const int found = find(text, letter);
    if (found == 0)
        return false;
    text = left(text, found - 1) + from(text, found + 1);
    return true;
}

void parseLetters(const Flags &flags, QString &text, Controls &controls)
{
    controls.checked.clear();
    for (int position = 1; position <= flags.read.size(); ++position) {
        if (extractLetter(text, charAt(flags.read, position)))
            controls.checked += charAt(flags.read, position);
    }
}

QString trim(QString text)
{
    while (charAt(text, 1) == " ")
        text = from(text, 2);
    while (charAt(text, int(text.size())) == " ")
        text = left(text, int(text.size()) - 1);
    return text;
}

} // namespace

Controls blankControls(const Flags &flags)
{
    Controls controls;
    for (qsizetype option = 0; option < flags.options.size(); ++option) {
        controls.optionBoxes.push_back(false);
        controls.optionFields << "";
    }
    return controls;
}

void parse(const Flags &flags, QString text, Controls &controls)
{
    for (qsizetype macro = 0; macro < flags.macros.size(); macro += 2) {
        if (!flags.isMacroReadAlone)
            text = replaceAll(text, flags.macros[macro], flags.macros[macro + 1]);
        else if (text == flags.macros[macro])
            text = flags.macros[macro + 1];
    }
    if (flags.areLettersReadFirst)
        parseLetters(flags, text, controls);
    for (qsizetype option = 0; option < flags.options.size(); ++option) {
        const QString value = extractNumber(text, flags.options[option]);
        controls.optionFields[option] = value;
        if (value != "")
            controls.optionBoxes[size_t(option)] = true;
    }
    if (!flags.areLettersReadFirst)
        parseLetters(flags, text, controls);
    controls.otherFlags = replaceAll(text, ",", "");
}

QString build(const Flags &flags, const Controls &controls)
{
    QString text;
    for (int position = 1; position <= flags.written.size(); ++position) {
        if (find(controls.checked, charAt(flags.written, position)) != 0)
            text += charAt(flags.written, position);
    }
    for (qsizetype macro = 0; macro < flags.macros.size(); macro += 2) {
        if (text == flags.macros[macro + 1]) {
            text = flags.macros[macro];
            break;
        }
    }
    for (qsizetype option = 0; option < flags.options.size(); ++option) {
        if (controls.optionBoxes[size_t(option)])
            text += "," + flags.options[option] + trim(controls.optionFields[option]);
    }
    if (controls.otherFlags != "")
        text += "," + controls.otherFlags;
    if (charAt(text, 1) == ",")
        text = from(text, 2);
    return text;
}

} // namespace plain
