#include "app/MessageBoxes.h"

#include "app/Application.h"
#include "platform/ByteText.h"

#include <QMessageBox>
#include <QPushButton>

#include <array>
#include <utility>

namespace {

// clang-format off
constexpr std::array<std::pair<QMessageBox::StandardButton, QLatin1String>, 4> buttonNames {{
    {QMessageBox::Ok,     QLatin1String("OKButton")},
    {QMessageBox::Yes,    QLatin1String("YesButton")},
    {QMessageBox::No,     QLatin1String("NoButton")},
    {QMessageBox::Cancel, QLatin1String("CancelButton")},
}};
// clang-format on

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

int showBox(const QString &text, Messages::Icon icon, const QString &title, QMessageBox::StandardButtons buttons,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton)
{
    QMessageBox box(boxIcon(icon), title.isEmpty() ? Application::title() : title, shownText(text), buttons,
                    QApplication::activeWindow());
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setDefaultButton(defaultButton);
    for (const auto &[button, name] : buttonNames) {
        if (QAbstractButton *shown = box.button(button))
            shown->setObjectName(name);
    }
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
    const bool isNoDefault = buttons == Buttons::YesOrElseNo;
    switch (showBox(text, icon, title, shown, isNoDefault ? QMessageBox::No : QMessageBox::NoButton)) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return buttons == Buttons::YesNoCancel ? Answer::Cancel : Answer::No;
    }
}
