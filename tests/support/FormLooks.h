#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

class QColor;
class QImage;
class QWidget;

/// How a form looks, whatever it is for: whether its texts can be read.

/// The visible controls of a form that have not the room that their texts need, each with what it has and needs.
[[nodiscard]] QStringList clippedTexts(const QWidget &form);

/// How much two colours differ to the eye: from 1, not at all, to 21, black on white. The formula is that of the Web
/// Content Accessibility Guidelines 2.1, "contrast ratio".
[[nodiscard]] double contrast(const QColor &one, const QColor &other);

/// The contrast that a text has to have by these guidelines (1.4.3), and that of what is no text (1.4.11).
constexpr double readableContrast = 4.5;
constexpr double visibleContrast = 3;

/// A text on a form.
struct ShownText
{
    QString control;
    /// Where it is painted, in the form.
    QRect place;
};

/// The texts that can be read: of what is visible and enabled.
[[nodiscard]] QList<ShownText> shownTexts(const QWidget &form);

/// The greatest contrast to the background, which is the colour that most pixels of the place have. The text has to be
/// painted without smoothed edges, which would thin its colour.
[[nodiscard]] double contrastIn(const QImage &picture, const QRect &place);
