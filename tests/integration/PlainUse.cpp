#include "tests/integration/PlainUse.h"

#include "tests/config/PlainGrammar.h"
#include "tests/support/SettingOrder.h"

#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace plain {

namespace {

/// Stands for the byte 0xFF.
constexpr QChar carrier(0xDCFF);

QString inQuotes(const QString &value)
{
    return value.contains(' ') && !value.startsWith('"') ? '"' + value + '"' : value;
}

/// The value of a setting in a line, when the line has that setting.
std::optional<QString> settingIn(const QString &line, const QString &key)
{
    static const QRegularExpression setting("^ *#define +([^ ]+)(?: +(.*[^ ]))? *$",
                                            QRegularExpression::CaseInsensitiveOption |
                                                QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = setting.match(line);
    if (!match.hasMatch() || match.captured(1).toUpper() != key)
        return {};
    QString value = match.captured(2);
    value.replace(QRegularExpression(" +"), " ");
    if (value.size() >= 2 && value.startsWith('"') && value.endsWith('"'))
        value = value.mid(1, value.size() - 2);
    return value;
}

/// Half a pair of surrogates is no character and is written as the one that stands for what is none.
QString withoutHalves(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        else if (text[i].isSurrogate())
            text[i] = QChar(0xFFFD);
    }
    return text;
}

/// A mark at the front is a character like any other.
QString textOf(const QByteArray &utf8)
{
    return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(utf8);
}

} // namespace

void UsedDocument::load(const QStringList &lines)
{
    document = {};
    for (const QString &line : lines)
        document.rows.append({line});
    m_steps.clear();
    changed = 0;
}

void UsedDocument::insertLine(const QString &line)
{
    const int at = document.current < 0 ? int(document.rows.size()) : document.current;
    document.insertLine(line);
    did({{Change::Inserted, at, {}}});
}

void UsedDocument::change(int row, const QString &line)
{
    const QString before = document.rows[row].text;
    document.change(row, line);
    did({{Change::Replaced, row, before}});
}

void UsedDocument::removeSelected()
{
    Step step;
    for (const int row : document.selected())
        step.prepend({Change::Removed, row, document.rows[row].text});
    document.removeSelected();
    did(step);
}

bool UsedDocument::move(bool isUp)
{
    QList<int> moved = document.selected();
    if (!isUp)
        std::reverse(moved.begin(), moved.end());
    Step step;
    for (const int row : moved) {
        step.append({Change::Removed, row, document.rows[row].text});
        step.append({Change::Inserted, isUp ? row - 1 : row + 1, {}});
    }
    if (moved.isEmpty())
        return true;
    if (!(isUp ? document.moveUp() : document.moveDown()))
        return false;
    did(step);
    return true;
}

void UsedDocument::toggleComments()
{
    Step step;
    for (const int row : document.selected())
        step.append({Change::Replaced, row, document.rows[row].text});
    if (step.isEmpty())
        return;
    document.toggleComments();
    did(step);
}

void UsedDocument::paste(const QString &text)
{
    if (text.isEmpty())
        return;
    QStringList lines{QString()};
    const bool hasCr = text.contains('\r');
    for (const QChar c : text) {
        if (c == (hasCr ? '\r' : '\n'))
            lines << QString();
        else if (c != '\n')
            lines.last() += c;
    }
    document.paste(lines);
    changed = -1;
    isUndoEnabled |= canUndo();
}

void UsedDocument::applySettings(const QMap<QString, SettingShown> &shown, const QStringList &touched)
{
    QStringList texts = document.texts();
    Step replaced;
    QStringList added;
    QList<int> removed;
    for (const QString &key : settingOrder) {
        int row = -1;
        SettingShown setting;
        for (int i = 0; i < texts.size(); ++i) {
            if (const std::optional<QString> value = settingIn(document.rows[i].text, key)) {
                row = i;
                setting = {*value, true};
            }
        }
        const bool hasFlag = key == "EVENTLOG" || key == "SYSLOG";
        if (touched.contains(key))
            setting = shown[key];
        setting.text = inQuotes(setting.text.replace('\r', ' ').replace('\n', ' '));
        if (hasFlag ? !setting.isChecked : setting.text.isEmpty()) {
            if (row >= 0)
                removed << row;
            continue;
        }
        const QString line = setting.text.isEmpty() ? "#define " + key : "#define " + key + ' ' + setting.text;
        if (row < 0) {
            added << line;
        } else if (texts[row] != line) {
            replaced.append({Change::Replaced, row, texts[row]});
            texts[row] = line;
        }
    }
    Step step = replaced;
    for (const QString &line : added) {
        step.append({Change::Inserted, int(texts.size()), {}});
        texts << line;
    }
    std::sort(removed.begin(), removed.end(), std::greater());
    for (const int row : removed)
        step.append({Change::Removed, row, texts.takeAt(row)});
    if (step.isEmpty())
        return;
    document.rewrite(texts);
    did(step);
}

void UsedDocument::undo()
{
    const Step step = m_steps.takeLast();
    if (document.canUndo())
        document.undo();
    else
        takeBack(step);
    changed = -1;
    isUndoEnabled = canUndo();
}

void UsedDocument::did(const Step &step)
{
    m_steps << step;
    changed = -1;
    isUndoEnabled = true;
}

void UsedDocument::takeBack(const Step &step)
{
    for (auto change = step.rbegin(); change != step.rend(); ++change) {
        const bool isThere = change->line < document.rows.size();
        if (change->kind == Change::Inserted && isThere)
            document.rows.removeAt(change->line);
        else if (change->kind == Change::Replaced && isThere)
            document.rows[change->line].text = change->before;
        else if (change->kind == Change::Removed && change->line <= document.rows.size())
            document.rows.insert(change->line, {change->before});
    }
}

QByteArray bytesOf(const QStringList &rows)
{
    QByteArray bytes;
    for (const QString &row : rows) {
        const QStringList pieces = row.split(carrier);
        for (qsizetype i = 0; i < pieces.size(); ++i)
            bytes += (i > 0 ? QByteArray("\xFF") : QByteArray()) + withoutHalves(pieces[i]).toUtf8();
        bytes += "\r\n";
    }
    return bytes;
}

QStringList rowsOf(const QByteArray &bytes)
{
    QStringList pieces;
    for (const QByteArray &piece : bytes.split('\xFF'))
        pieces << textOf(piece);
    return bytes.isEmpty() ? QStringList() : linesOf(pieces.join(carrier));
}

QString shown(QString text)
{
    return text.replace(carrier, QChar(0xFF));
}

} // namespace plain
