#include "config/RowClipboard.h"

#include "platform/ByteText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <memory>

namespace {

const QString rowsFormat = QStringLiteral("application/x-zentilconf-rows");

} // namespace

void RowClipboard::put(const QString &text)
{
    auto data = std::make_unique<QMimeData>();
    const QString shown = shownText(text);
    data->setText(shown);
    if (shown != text)
        data->setData(rowsFormat, encodeText(text));
    // The clipboard owns it from here on.
    QGuiApplication::clipboard()->setMimeData(data.release());
}

QString RowClipboard::text()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (!data)
        return {};
    return data->hasFormat(rowsFormat) ? decodeBytes(data->data(rowsFormat)) : data->text();
}
