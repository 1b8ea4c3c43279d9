#pragma once

#include <QRadioButton>

class QStyleOptionButton;

/// An option button with a caption of several lines. An arrow key that goes from it to the next one selects that, also
/// when none of them was selected before.
class WrappingRadioButton final : public QRadioButton
{
    Q_OBJECT

public:
    using QRadioButton::QRadioButton;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    [[nodiscard]] bool hitButton(const QPoint &position) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// What the style needs to know of it, as if it had a single line, at the top.
    [[nodiscard]] QStyleOptionButton firstLine() const;
    [[nodiscard]] QRect captionRect() const;
};
