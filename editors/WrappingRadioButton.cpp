#include "editors/WrappingRadioButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

/// How wide the caption is at least, in characters.
constexpr int captionWidth = 60;

constexpr int captionFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | Qt::TextShowMnemonic;

} // namespace

QSize WrappingRadioButton::sizeHint() const
{
    ensurePolished();
    const int width = captionWidth * fontMetrics().averageCharWidth();
    const QSize caption = fontMetrics().boundingRect(QRect(0, 0, width, 0), captionFlags, text()).size();
    const QStyleOptionButton line = firstLine();
    return style()->sizeFromContents(QStyle::CT_RadioButton, &line, caption.expandedTo({width, 0}), this);
}

QSize WrappingRadioButton::minimumSizeHint() const
{
    return sizeHint();
}

bool WrappingRadioButton::hitButton(const QPoint &position) const
{
    return rect().contains(position);
}

void WrappingRadioButton::keyPressEvent(QKeyEvent *event)
{
    QRadioButton::keyPressEvent(event);
    // An arrow key has gone to the next option. The toolkit selects it only where another one was selected before, so
    // that Enter would then confirm nothing at all.
    auto *next = qobject_cast<QRadioButton *>(window()->focusWidget());
    if (next && next != this && next->parent() == parent() && !next->isChecked())
        next->click();
}

void WrappingRadioButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton indicator = firstLine();
    indicator.rect = style()->subElementRect(QStyle::SE_RadioButtonIndicator, &indicator, this);
    painter.drawPrimitive(QStyle::PE_IndicatorRadioButton, indicator);

    const QRect caption = captionRect();
    painter.drawItemText(
        caption, int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) | (captionFlags & ~Qt::AlignLeft),
        palette(), isEnabled(), text(), QPalette::WindowText);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = caption;
        focus.backgroundColor = palette().window().color();
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

QStyleOptionButton WrappingRadioButton::firstLine() const
{
    QStyleOptionButton line;
    initStyleOption(&line);
    line.rect.setHeight(qMax(fontMetrics().height(), style()->pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, &line)));
    return line;
}

QRect WrappingRadioButton::captionRect() const
{
    const QStyleOptionButton line = firstLine();
    QRect caption = style()->subElementRect(QStyle::SE_RadioButtonContents, &line, this);
    // The indicator is in the middle of the first line, and may be higher than it.
    caption.setTop((line.rect.height() - fontMetrics().height()) / 2);
    caption.setBottom(rect().bottom());
    return caption;
}
