#include "app/MessageBoxes.h"

#include "app/Application.h"

#include <QMessageBox>

namespace {

QMessageBox::Icon boxIcon(Messages::Icon icon)
{
    switch (icon) {
    case Messages::Icon::Information:
        return QMessageBox::Information;
    case Messages::Icon::Question:
        return QMessageBox::Question;
    case Messages::Icon::Exclamation:
        return QMessageBox::Warning;
    case Messages::Icon::Critical:
        return QMessageBox::Critical;
    case Messages::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

int showBox(const QString &text, Messages::Icon icon, const QString &title, QMessageBox::StandardButtons buttons)
{
    QMessageBox box(boxIcon(icon), title.isEmpty() ? Application::title() : title, text, buttons,
                    QApplication::activeWindow());
    box.setObjectName(QStringLiteral("MessageBox"));
    // A path may look like mark-up.
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    return box.exec();
}

} // namespace

void MessageBoxes::show(const QString &text, Icon icon, const QString &title)
{
    (void)showBox(text, icon, title, QMessageBox::Ok);
}

Messages::Answer MessageBoxes::ask(const QString &text, Buttons buttons, Icon icon, const QString &title)
{
    QMessageBox::StandardButtons shown = QMessageBox::Yes | QMessageBox::No;
    if (buttons == Buttons::YesNoCancel)
        shown |= QMessageBox::Cancel;
    switch (showBox(text, icon, title, shown)) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    }
}
