#include "config/ConfigLine.h"
#include "config/ConfigParse.h"
#include "config/LineReader.h"
#include "config/RowList.h"
#include "platform/ByteText.h"
#include "platform/RuntimeError.h"

#include <QDebug>

#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

// Not an assertion: it has to hold in every kind of build.
void require(bool holds, const char *what)
{
    if (!holds) {
        qCritical("%s", what);
        std::abort();
    }
}

/// The lines of bytes that arrive in pieces of that size; nothing where the reader refuses them.
std::optional<QStringList> read(QByteArrayView bytes, qsizetype pieceSize)
{
    LineReader reader;
    for (qsizetype at = 0; at < bytes.size(); at += pieceSize)
        reader.take(bytes.sliced(at, qMin(pieceSize, bytes.size() - at)));
    try {
        return reader.lines();
    } catch (const RuntimeError &error) {
        require(error.number() == RuntimeError::InvalidCall || error.number() == RuntimeError::Overflow,
                "the reader raises what it says");
        return std::nullopt;
    }
}

template<class Parse>
void requireTakenApart(const QString &line, const Parse &parse)
{
    QString prefix;
    QString object;
    QString flags;
    try {
        parse(line, prefix, object, flags);
        require(prefix.size() <= 2 && object.size() <= line.size() && flags.size() <= line.size(),
                "the parts are parts of the line");
    } catch (const RuntimeError &error) {
        require(error.number() == RuntimeError::InvalidCall, "taking apart raises nothing else");
        require(line.contains(u'"'), "only a double quote makes a line impossible");
    }
}

} // namespace

/// The first byte is the size of the pieces in which the rest arrives.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const QByteArrayView bytes(data + 1, qsizetype(size) - 1);
    const std::optional<QStringList> lines = read(bytes, 1 + data[0]);
    require(lines == read(bytes, qMax(qsizetype(1), bytes.size())), "the pieces make no difference");
    require(encodeText(decodeBytes(bytes)) == bytes, "no byte is lost");
    if (!lines)
        return 0;

    RowList rows;
    rows.setRows(*lines);
    const QByteArray written = encodeText(rows.text());
    require(read(written, 4096) == lines, "what is written is read again");
    for (const QString &line : *lines) {
        require(!line.contains(u'\r') && !line.contains(u'\n'), "no line holds a line end");
        require(int(GetItemType(line)) >= 0 && int(GetItemType(line)) <= 9, "every line has a kind");
        requireTakenApart(line, [](const QString &text, QString &prefix, QString &object, QString &flags) {
            parseLine(text, ParseRule::Document, prefix, object, flags);
        });
        requireTakenApart(line, [](const QString &text, QString &prefix, QString &object, QString &flags) {
            ConfigParse().ParseLine(text, prefix, object, flags);
        });
        for (const QChar c : EscapeObject(line))
            require(c.unicode() == 0 || (c.unicode() >= 32 && c.unicode() <= 126), "an object is printable ASCII");
    }
    return 0;
}
