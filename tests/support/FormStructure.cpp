#include "tests/support/FormStructure.h"

#include "tests/support/Gestures.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>
#include <QSet>
#include <QTabWidget>
#include <QTextEdit>
#include <QToolButton>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

bool isInput(const QWidget &widget)
{
    return qobject_cast<const QAbstractButton *>(&widget) || qobject_cast<const QAbstractItemView *>(&widget) ||
           qobject_cast<const QAbstractSpinBox *>(&widget) || qobject_cast<const QComboBox *>(&widget) ||
           qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QTextEdit *>(&widget);
}

/// What the toolkit makes for itself inside a control, a title bar or a bar: not ours to name.
bool isToolkitsOwn(const QWidget &widget)
{
    if (widget.objectName().startsWith("qt_"))
        return true;
    for (const QWidget *at = widget.parentWidget(); at; at = at->parentWidget()) {
        if (qobject_cast<const QComboBox *>(at) || qobject_cast<const QAbstractItemView *>(at) ||
            qobject_cast<const QMenuBar *>(at))
            return true;
    }
    return false;
}

bool hasLabel(const QWidget &form, const QWidget &input)
{
    if (!input.accessibleName().isEmpty())
        return true;
    // A screen reader is not told the label of a list or a tree.
    if (qobject_cast<const QAbstractItemView *>(&input))
        return false;
    if (const auto *button = qobject_cast<const QAbstractButton *>(&input); button && !button->text().isEmpty())
        return true;
    for (const QLabel *label : form.findChildren<QLabel *>()) {
        if (label->buddy() == &input)
            return true;
    }
    return false;
}

bool hasSiblingIn(const QStringList &round, const QRadioButton &option)
{
    const auto siblings = option.parentWidget()->findChildren<QRadioButton *>(QString(), Qt::FindDirectChildrenOnly);
    return std::any_of(siblings.begin(), siblings.end(),
                       [&](const QRadioButton *each) { return round.contains(each->objectName()); });
}

} // namespace

QList<QWidget *> inputsOf(const QWidget &form)
{
    QList<QWidget *> result;
    for (QWidget *widget : form.findChildren<QWidget *>()) {
        if (isInput(*widget) && !isToolkitsOwn(*widget))
            result << widget;
    }
    return result;
}

QChar mnemonicOf(const QString &text)
{
    const QKeySequence sequence = QKeySequence::mnemonic(text);
    return sequence.isEmpty() ? QChar() : sequence.toString(QKeySequence::PortableText).back();
}

QMap<QString, QString> mnemonicTexts(const QWidget &form)
{
    QMap<QString, QString> result;
    for (const auto *button : form.findChildren<QAbstractButton *>()) {
        if (!isToolkitsOwn(*button) && !qobject_cast<const QToolButton *>(button))
            result[button->objectName()] = button->text();
    }
    for (const auto *label : form.findChildren<QLabel *>()) {
        if (label->buddy())
            result[label->objectName()] = label->text();
    }
    for (const auto *box : form.findChildren<QGroupBox *>())
        result[box->objectName()] = box->title();
    return result;
}

QStringList sharedMnemonics(const QMap<QString, QString> &texts)
{
    QStringList shared;
    QMap<QChar, QString> taken;
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        const QChar letter = mnemonicOf(text.value());
        if (letter.isNull())
            continue;
        if (taken.contains(letter))
            shared << text.key() + " and " + taken[letter];
        taken[letter] = text.key();
    }
    return shared;
}

void expectNamedAndLabelled(const QWidget &form)
{
    EXPECT_FALSE(form.objectName().isEmpty());
    const QList<QWidget *> inputs = inputsOf(form);
    EXPECT_FALSE(inputs.isEmpty());
    QSet<QString> names;
    for (const QWidget *input : inputs) {
        const std::string what =
            QStringLiteral("%1 %2").arg(input->metaObject()->className(), input->objectName()).toStdString();
        EXPECT_FALSE(input->objectName().isEmpty()) << what;
        EXPECT_FALSE(names.contains(input->objectName())) << what << " stands twice";
        EXPECT_TRUE(hasLabel(form, *input)) << what << " has no label";
        names << input->objectName();
    }
    for (const QLabel *label : form.findChildren<QLabel *>()) {
        if (!isToolkitsOwn(*label)) {
            EXPECT_FALSE(label->objectName().isEmpty()) << "the label " << label->text().toStdString();
        }
    }
    for (const QGroupBox *frame : form.findChildren<QGroupBox *>())
        EXPECT_FALSE(frame->objectName().isEmpty()) << "the frame " << frame->title().toStdString();
    for (const QTabWidget *pages : form.findChildren<QTabWidget *>()) {
        EXPECT_FALSE(pages->objectName().isEmpty());
        for (int page = 0; page < pages->count(); ++page)
            EXPECT_FALSE(pages->widget(page)->objectName().isEmpty()) << pages->tabText(page).toStdString();
    }
}

QStringList tabRound(QWidget &form)
{
    QStringList names;
    const QWidget *first = form.window()->focusWidget();
    EXPECT_NE(first, nullptr) << "nothing has the focus";
    if (!first)
        return names;
    const QWidget *at = first;
    do {
        names << at->objectName();
        key(form, Qt::Key_Tab);
        at = form.window()->focusWidget();
    } while (at && at != first && names.size() < 1000);
    return names;
}

void expectReachableByTab(const QWidget &form, const QStringList &round)
{
    for (const QWidget *input : inputsOf(form)) {
        // Of option buttons that exclude each other Tab reaches one; the arrow keys go on from there.
        const auto *option = qobject_cast<const QRadioButton *>(input);
        if (option && hasSiblingIn(round, *option))
            continue;
        if (input->isVisible() && input->isEnabled() && !qobject_cast<const QToolButton *>(input)) {
            EXPECT_TRUE(round.contains(input->objectName())) << input->objectName().toStdString();
        }
    }
}

void expectReadInOrder(const QWidget &form, const QStringList &round)
{
    const QWidget *above = nullptr;
    for (const QString &name : round) {
        const QWidget *at = form.window()->findChild<QWidget *>(name);
        if (above && above->parentWidget() == at->parentWidget() && !qobject_cast<const QCheckBox *>(at)) {
            const int down = at->mapTo(&form, QPoint()).y() - above->mapTo(&form, QPoint()).y();
            const bool isBeside = qAbs(down) < qMin(above->height(), at->height()) / 2;
            EXPECT_TRUE(isBeside ? at->x() > above->x() : down > 0)
                << name.toStdString() << " behind " << above->objectName().toStdString();
        }
        above = at;
    }
}

void onEachPage(const QWidget &form, const std::function<void()> &check)
{
    auto *pages = form.findChild<QTabWidget *>();
    for (int page = 0; page < (pages ? pages->count() : 1); ++page) {
        SCOPED_TRACE(page);
        if (pages)
            pages->setCurrentIndex(page);
        check();
    }
}
