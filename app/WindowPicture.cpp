#include "app/WindowPicture.h"

#include "app/frmMain.h"
#include "config/ConfigForm.h"

#include <QImage>
#include <QPixmap>
#include <QSaveFile>
#include <QStringList>
#include <QTimer>

namespace {

void writePicture(frmMain &window, const QString &path)
{
    QStringList documents;
    for (const ConfigForm *document : window.documents())
        documents << document->caption() + u'\t' + QString::number(document->rowList().rowCount());
    QImage picture = window.grab().toImage();
    picture.setText(QStringLiteral("Documents"), documents.join(u'\n'));

    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !picture.save(&file, "PNG") || !file.commit())
        qWarning("The picture cannot be written to %s: %s", qUtf8Printable(path), qUtf8Printable(file.errorString()));
}

} // namespace

void writePictureWhenShown(frmMain &window, const QString &path)
{
    QTimer::singleShot(0, &window, [&window, path] { writePicture(window, path); });
}
