#include "tests/support/FormLooks.h"

#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {

/// The room that a control needs to show all of its text.
QSize neededSize(const QWidget &control)
{
    if (const auto *label = qobject_cast<const QLabel *>(&control)) {
        if (label->text().isEmpty())
            return {};
        return label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
    }
    if (const auto *tabs = qobject_cast<const QTabBar *>(&control)) {
        // In a narrower bar the tabs are scrolled.
        QRect all;
        for (int tab = 0; tab < tabs->count(); ++tab)
            all |= tabs->tabRect(tab);
        return all.size();
    }
    if (const auto *box = qobject_cast<const QGroupBox *>(&control))
        return box->minimumSizeHint();
    // A field shows a part of a long text; it has to be high enough.
    if (qobject_cast<const QLineEdit *>(&control))
        return {0, control.minimumSizeHint().height()};
    if (qobject_cast<const QAbstractButton *>(&control) || qobject_cast<const QComboBox *>(&control))
        return control.sizeHint();
    return {};
}

QStringList clippedHeadings(const QHeaderView &header)
{
    QStringList result;
    for (int section = 0; section < header.count(); ++section) {
        if (header.sectionSize(section) < header.sectionSizeHint(section))
            result << QStringLiteral("heading %1").arg(section);
    }
    return result;
}

QRect textPlace(const QWidget &control)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(&control)) {
        if (button->text().isEmpty() || qobject_cast<const QToolButton *>(button))
            return {};
        QStyleOptionButton option;
        option.initFrom(button);
        option.text = button->text();
        QStyle::SubElement text = QStyle::SE_PushButtonContents;
        if (qobject_cast<const QCheckBox *>(button))
            text = QStyle::SE_CheckBoxContents;
        else if (qobject_cast<const QRadioButton *>(button))
            text = QStyle::SE_RadioButtonContents;
        return button->style()->subElementRect(text, &option, button);
    }
    if (const auto *label = qobject_cast<const QLabel *>(&control))
        return label->text().isEmpty() ? QRect() : label->contentsRect();
    if (const auto *field = qobject_cast<const QLineEdit *>(&control)) {
        // Without its frame.
        const int frame = field->style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + 1;
        return field->text().isEmpty() ? QRect() : field->rect().adjusted(frame, frame, -frame, -frame);
    }
    return {};
}

double lightOf(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * lightOf(color.redF()) + 0.7152 * lightOf(color.greenF()) + 0.0722 * lightOf(color.blueF());
}

} // namespace

QStringList clippedTexts(const QWidget &form)
{
    QStringList result;
    for (const QWidget *control : form.findChildren<QWidget *>()) {
        // The field in a drop-down list is the toolkit's.
        if (!control->isVisible() || qobject_cast<const QComboBox *>(control->parentWidget()))
            continue;
        const QSize needed = neededSize(*control);
        if (control->width() < needed.width() || control->height() < needed.height()) {
            result << QStringLiteral("%1 %2: %3 x %4 of %5 x %6")
                          .arg(control->metaObject()->className(), control->objectName())
                          .arg(control->width())
                          .arg(control->height())
                          .arg(needed.width())
                          .arg(needed.height());
        }
        if (const auto *header = qobject_cast<const QHeaderView *>(control))
            result << clippedHeadings(*header);
    }
    return result;
}

double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QList<ShownText> shownTexts(const QWidget &form)
{
    QList<ShownText> result;
    for (const QWidget *control : form.findChildren<QWidget *>()) {
        const QRect place = textPlace(*control);
        if (control->isVisible() && control->isEnabled() && !place.isEmpty())
            result.push_back({control->objectName(), place.translated(control->mapTo(&form, QPoint()))});
    }
    return result;
}

double contrastIn(const QImage &picture, const QRect &place)
{
    QHash<QRgb, int> pixels;
    const QRect inside = place.intersected(picture.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            ++pixels[picture.pixel(x, y)];
    }
    QRgb background = 0;
    for (auto each = pixels.cbegin(); each != pixels.cend(); ++each) {
        if (each.value() > pixels.value(background))
            background = each.key();
    }
    double greatest = 1;
    for (auto each = pixels.cbegin(); each != pixels.cend(); ++each)
        greatest = std::max(greatest, contrast(QColor(each.key()), QColor(background)));
    return greatest;
}
