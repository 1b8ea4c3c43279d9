#pragma once

#include <QIcon>
#include <QListView>

#include <vector>

/// A list of names, of which the user chooses one. It takes tens of thousands of them.
class NameList final : public QListView
{
    Q_OBJECT

public:
    struct Row
    {
        QString name;
        QIcon icon;
        /// How far the row is moved to the right, in steps.
        int depth = 0;
    };

    enum class Choice {
        /// A row is chosen when it is selected, with the mouse or the keys.
        BySelecting,
        /// A row is chosen by a click, or by the Enter key.
        ByOpening,
    };

    NameList(QLatin1String name, Choice choice, QWidget *parent);

    void setRows(std::vector<Row> rows);

    /// Selects a row, from 0, as if the user had chosen it, but tells nobody.
    void selectRow(int row);

signals:
    void chosen(int row);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    Choice m_choice;
};
