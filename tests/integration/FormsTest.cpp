#include "tests/integration/Forms.h"
#include "tests/support/FormStructure.h"

#include <QCheckBox>
#include <QDirIterator>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTabWidget>

namespace {

/// The windows, and the parts that they are made of, that the headers of the program declare.
QStringList declaredForms()
{
    QMap<QString, QString> bases;
    QSet<QString> finalClasses;
    for (const char *folder : {"app", "browse", "config", "editors", "settings"}) {
        QDirIterator headers(QStringLiteral(SOURCE_FOLDER "/%1").arg(folder), {"*.h"}, QDir::Files);
        while (headers.hasNext()) {
            QFile file(headers.next());
            EXPECT_TRUE(file.open(QFile::ReadOnly)) << file.fileName().toStdString();
            static const QRegularExpression declaration("^class (\\w+)( final)? : public (\\w+)",
                                                        QRegularExpression::MultilineOption);
            auto found = declaration.globalMatch(QString::fromUtf8(file.readAll()));
            while (found.hasNext()) {
                const QRegularExpressionMatch match = found.next();
                bases[match.captured(1)] = match.captured(3);
                if (!match.captured(2).isEmpty())
                    finalClasses << match.captured(1);
            }
        }
    }
    QStringList result;
    for (const QString &name : std::as_const(finalClasses)) {
        QString base = name;
        while (bases.contains(base))
            base = bases[base];
        if (base == "QDialog" || base == "QMainWindow" || base == "QWidget")
            result << name;
    }
    result.sort();
    return result;
}

/// These stand in other forms.
const QStringList partsOfForms{"FileLists", "FlagPanel", "frmODBCLogon"};

TEST_F(Forms, AreAllInTheList)
{
    QStringList listed = partsOfForms;
    for (const Row &row : all())
        listed << row.name;
    listed.sort();
    EXPECT_EQ(listed, declaredForms());
}

TEST_F(Forms, HaveThePartsThatAreNoFormsOfTheirOwn)
{
    QStringList missing = partsOfForms;
    withEach([&](const Row &, QWidget &form) {
        for (const QWidget *part : form.findChildren<QWidget *>())
            missing.removeAll(part->metaObject()->className());
    });
    EXPECT_EQ(missing, QStringList());
}

TEST_F(Forms, AreNamedAfterTheirClassesAndHaveTitles)
{
    withEach([](const Row &row, QWidget &form) {
        EXPECT_EQ(form.objectName(), row.name);
        EXPECT_EQ(form.metaObject()->className(), form.objectName());
        EXPECT_FALSE(form.windowTitle().isEmpty());
    });
}

TEST_F(Forms, HaveANameAndALabelForEveryControl)
{
    withEach([](const Row &, QWidget &form) { expectNamedAndLabelled(form); });
}

TEST_F(Forms, HaveUniqueMnemonics)
{
    withEach([](const Row &, QWidget &form) {
        QMap<QString, QString> texts = mnemonicTexts(form);
        const auto *pages = form.findChild<QTabWidget *>();
        for (int page = 0; pages && page < pages->count(); ++page)
            texts[pages->widget(page)->objectName()] = pages->tabText(page);
        EXPECT_EQ(sharedMnemonics(texts), QStringList());
    });
}

TEST_F(Forms, OpenOnTheFirstPageWithTheFocusWhereOneBegins)
{
    withEach([](const Row &row, QWidget &form) {
        const auto *pages = form.findChild<QTabWidget *>();
        EXPECT_EQ(pages ? pages->currentIndex() : 0, 0);
        ASSERT_NE(form.window()->focusWidget(), nullptr);
        EXPECT_EQ(form.window()->focusWidget()->objectName(), row.focus);
    });
}

TEST_F(Forms, AreWalkedThroughByTabInTheOrderInWhichTheyAreRead)
{
    withEach([](const Row &, QWidget &form) {
        // What is disabled at first is enabled by its box.
        if (form.inherits("QDialog")) {
            for (QCheckBox *box : form.findChildren<QCheckBox *>())
                box->setChecked(box->objectName() != "AllRights");
        }
        onEachPage(form, [&] {
            const QStringList round = tabRound(form);
            expectReachableByTab(form, round);
            expectReadInOrder(form, round);
        });
    });
}

/// What a form's button would do is not done: whether the key presses it is all that is looked at.
bool isPressedBy(Qt::Key pressed, QWidget &form, const char *name)
{
    auto *button = control<QPushButton>(form, name);
    button->disconnect(SIGNAL(clicked(bool)));
    const QSignalSpy clicked(button, &QPushButton::clicked);
    key(form, pressed);
    return clicked.size() == 1;
}

TEST_F(Forms, LetEnterPressTheDefaultButtonFromEachInput)
{
    withEach([](const Row &row, QWidget &form) {
        EXPECT_EQ(form.inherits("QDialog"), row.defaultButton != nullptr);
        if (!row.defaultButton)
            return;
        EXPECT_TRUE(control<QPushButton>(form, row.defaultButton)->isDefault());
        onEachPage(form, [&] {
            for (QWidget *input : inputsOf(form)) {
                // A button that has the focus is what Enter presses then; in a list of folders it opens one.
                const bool keepsEnter = qobject_cast<QPushButton *>(input) || input->objectName() == "DirList";
                if (!input->isVisible() || !input->isEnabled() || keepsEnter)
                    continue;
                input->setFocus();
                EXPECT_TRUE(isPressedBy(Qt::Key_Return, form, row.defaultButton)) << input->objectName().toStdString();
            }
        });
    });
}

TEST_F(Forms, AreLeftByEscapeWithNothingChanged)
{
    const QStringList rows = document(0).rowList().rows();
    const qsizetype stored = storingCalls();
    withEach([](const Row &, QWidget &opened) {
        const QPointer<QWidget> form = &opened;
        const bool isDialog = form->inherits("QDialog");
        key(*form, Qt::Key_Escape);
        settle();
        EXPECT_EQ(!form || !form->isVisible(), isDialog);
    });
    EXPECT_EQ(document(0).rowList().rows(), rows);
    EXPECT_EQ(storingCalls(), stored);
}

TEST_F(Forms, HaveACancelButtonThatDoesTheSame)
{
    const QStringList rows = document(0).rowList().rows();
    const qsizetype stored = storingCalls();
    withEach([](const Row &row, QWidget &opened) {
        if (!row.cancelButton)
            return;
        const QPointer<QWidget> form = &opened;
        press(*form, row.cancelButton);
        settle();
        EXPECT_TRUE(!form || !form->isVisible());
    });
    EXPECT_EQ(document(0).rowList().rows(), rows);
    EXPECT_EQ(storingCalls(), stored);
}

} // namespace
