#pragma once

#include <QComboBox>

/// A drop-down list in which an entry is chosen from the opened list only, for choices that do something at once: over
/// the closed list a key or the wheel would do it for one entry after the other on its way. The arrow keys and letters
/// open the list; a letter goes to the entry that begins with it.
class DropDownList : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};
