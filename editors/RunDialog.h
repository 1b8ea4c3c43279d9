#pragma once

#include <QDialog>
#include <QPointer>

/// Shows a dialog until it is closed, hands over what was done in it, and ends it. Should the form that it belongs to
/// end while it is open, the dialog goes with the form and nothing is handed over.
/// @param dialog made for this call; its parent is the form
/// @param take is given QDialog::result(), and may use dialog
template<class Take>
void runDialog(QDialog *dialog, const Take &take)
{
    const QPointer<QDialog> open(dialog);
    const int result = dialog->exec();
    if (!open)
        return;
    dialog->deleteLater();
    take(result);
}
