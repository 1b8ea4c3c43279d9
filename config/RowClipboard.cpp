#include "config/RowClipboard.h"

#include "platform/ByteText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QStringDecoder>
#include <QStringEncoder>

#include <memory>

namespace {

// UTF-16, in which also carried bytes and halves of pairs stay what they are.
const QString rowsFormat = QStringLiteral("application/x-zentilconf-rows");

} // namespace

void RowClipboard::put(const QString &text)
{
    auto data = std::make_unique<QMimeData>();
    const QString shown = shownText(text);
    data->setText(shown);
    if (shown != text)
        data->setData(rowsFormat, QStringEncoder(QStringEncoder::Utf16LE)(text));
    // The clipboard owns it from here on.
    QGuiApplication::clipboard()->setMimeData(data.release());
}

QString RowClipboard::text()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (!data)
        return {};
    if (!data->hasFormat(rowsFormat))
        return data->text();
    // A mark at the front is a row's own.
    return QStringDecoder(QStringDecoder::Utf16LE, QStringDecoder::Flag::ConvertInitialBom)(data->data(rowsFormat));
}
