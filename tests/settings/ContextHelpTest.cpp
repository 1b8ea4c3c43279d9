#include "settings/ContextHelp.h"

#include "settings/ProductHelp.h"
#include "tests/support/FakeHelpViewer.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// A form with controls, of which each has the topic that is its number.
class ContextHelp : public testing::Test
{
protected:
    ContextHelp()
    {
        registry.set("HKEY_LOCAL_MACHINE\\SOFTWARE\\Tarnwell Software\\Zentil\\1.0", "Directory", "C:\\Zentil");
        qApp->installEventFilter(&helpKey);
        auto *layout = new QVBoxLayout(&form);
        int topic = 100;
        for (QWidget *control : QList<QWidget *>{&text, &list, &box, &button}) {
            control->setProperty(helpContextProperty, ++topic);
            layout->addWidget(control);
        }
        layout->addWidget(&unnumbered);
        list.addItems({"a", "b"});
    }

    /// The topics that were asked for, in order. Every question is for the product's file.
    [[nodiscard]] QList<quint32> topics() const
    {
        QList<quint32> result;
        for (const FakeHelpViewer::Call &call : viewer.calls) {
            EXPECT_EQ(call.file, "C:\\Zentil\\Help\\zentil.chm");
            EXPECT_EQ(call.command, HelpViewer::Command::HelpContext);
            result << call.topic;
        }
        return result;
    }

    FakeRegistry registry;
    FakeHelpViewer viewer;
    FakeMessages messages;
    const UseMessages use{messages};
    ProductHelp help{registry, viewer, messages};
    ContextHelpKey helpKey{help};
    QDialog form;
    QLineEdit text;
    QComboBox list;
    QPlainTextEdit box;
    QPushButton button{"b"};
    QPushButton unnumbered{"u"};
};

TEST_F(ContextHelp, OpensTheTopicOfTheFocusedControlAndTellsItsNumber)
{
    showActive(form);
    text.setFocus();
    EXPECT_EQ(ShowContextHelp(form, help), 101U);
    button.setFocus();
    EXPECT_EQ(ShowContextHelp(form, help), 104U);
    EXPECT_EQ(topics(), (QList<quint32>{101, 104}));
}

TEST_F(ContextHelp, OfAControlWithoutANumberIsTopic0)
{
    showActive(form);
    unnumbered.setFocus();
    EXPECT_EQ(ShowContextHelp(form, help), 0U);
    EXPECT_EQ(topics(), QList<quint32>{0});
}

TEST_F(ContextHelp, OfAFormWithoutControlsIsTopic0)
{
    QDialog empty;
    showActive(empty);
    EXPECT_EQ(ShowContextHelp(empty, help), 0U);
    EXPECT_EQ(topics(), QList<quint32>{0});
}

TEST_F(ContextHelp, OfAnEditableListIsTheListsOwn)
{
    // Its field has the focus, and no number.
    list.setEditable(true);
    showActive(form);
    list.setFocus();
    key(form, Qt::Key_F1);
    EXPECT_EQ(topics(), QList<quint32>{102});
}

TEST_F(ContextHelp, ComesWithF1WhateverHasTheFocus)
{
    showActive(form);
    for (QWidget *control : QList<QWidget *>{&text, &list, &box, &button, &unnumbered}) {
        control->setFocus();
        key(form, Qt::Key_F1);
    }
    EXPECT_EQ(topics(), (QList<quint32>{101, 102, 103, 104, 0}));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(text.text(), "");
}

TEST_F(ContextHelp, DoesNotComeWithOtherKeys)
{
    showActive(form);
    text.setFocus();
    key(form, Qt::Key_F1, Qt::ShiftModifier);
    key(form, Qt::Key_F1, Qt::ControlModifier);
    key(form, Qt::Key_F2);
    EXPECT_EQ(topics(), QList<quint32>());
}

TEST_F(ContextHelp, ComesOnceWhileTheKeyIsHeld)
{
    showActive(form);
    text.setFocus();
    key(form, Qt::Key_F1);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(&text, &held);
    EXPECT_EQ(topics(), QList<quint32>{101});
}

TEST_F(ContextHelp, ComesInAMessage)
{
    const auto asked = onNextDialog([](QWidget &dialog) { key(dialog, Qt::Key_F1); });
    QMessageBox(QMessageBox::NoIcon, "title", "text", QMessageBox::Ok).exec();
    EXPECT_TRUE(asked->handled);
    EXPECT_EQ(topics(), QList<quint32>{0});
}

TEST_F(ContextHelp, ComesInADocumentWindow)
{
    QMainWindow main;
    auto *area = new QMdiArea(&main);
    main.setCentralWidget(area);
    area->addSubWindow(new QPlainTextEdit)->widget()->setProperty(helpContextProperty, 9);
    showActive(main);
    area->activeSubWindow()->widget()->setFocus();
    key(main, Qt::Key_F1);
    EXPECT_EQ(topics(), QList<quint32>{9});
}

TEST_F(ContextHelp, ComesNotFromAnOpenMenu)
{
    showActive(form);
    QMenu menu(&form);
    menu.addAction("entry");
    menu.popup(form.pos());
    QTest::keyClick(&menu, Qt::Key_F1);
    EXPECT_EQ(topics(), QList<quint32>());
    menu.close();
    text.setFocus();
    key(form, Qt::Key_F1);
    EXPECT_EQ(topics(), QList<quint32>{101});
}

TEST_F(ContextHelp, ShowsAnErrorsDescription)
{
    showActive(form);
    viewer.error = RuntimeError::described(RuntimeError::FileNotFound, missingHelpFileText("C:\\zentil.chm"));
    messages.expectShow("Cannot find file C:\\zentil.chm");
    text.setFocus();
    key(form, Qt::Key_F1);
    messages.verify();
}

} // namespace
