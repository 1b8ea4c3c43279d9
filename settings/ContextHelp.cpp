#include "settings/ContextHelp.h"

#include "settings/ProductHelp.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVariant>
#include <QWidget>

namespace {

/// The control that a user takes for the one with the focus: an editable drop-down list gives the focus to a field of
/// its own.
const QWidget *activeControl(const QWidget &form)
{
    const QWidget *control = form.window()->focusWidget();
    while (control && control->parentWidget() && control->parentWidget()->focusProxy() == control)
        control = control->parentWidget();
    return control;
}

} // namespace

quint32 ShowContextHelp(const QWidget &form, ProductHelp &help)
{
    const QWidget *control = activeControl(form);
    const quint32 topic = control ? control->property(helpContextProperty).toUInt() : 0;
    help.showTopic(topic);
    return topic;
}

ContextHelpKey::ContextHelpKey(ProductHelp &help)
    : m_help(help)
{
}

bool ContextHelpKey::eventFilter(QObject *watched, QEvent *event)
{
    // What has popped up would stay in front of the help, and takes all keys.
    if (event->type() != QEvent::KeyPress || QApplication::activePopupWidget())
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const auto *widget = qobject_cast<const QWidget *>(watched);
    if (!widget || key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier || key->isAutoRepeat())
        return QObject::eventFilter(watched, event);
    ShowContextHelp(*widget, m_help);
    return true;
}
