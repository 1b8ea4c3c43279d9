#include "editors/LineEdit.h"
#include "settings/RunReported.h"
#include "tests/integration/RandomUse.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QUrl>

namespace {

/// The buttons of editors that open a dialog.
const QStringList pickerButtons{"ButtonPrefixQuery", "Browse", "ObjBrowse", "DriveBrowse", "FlagsInquire"};

template<class Control>
QList<Control *> usableIn(const QWidget &window)
{
    QList<Control *> controls = window.findChildren<Control *>();
    controls.removeIf([](const Control *each) { return !each->isVisible() || !each->isEnabled(); });
    return controls;
}

QMap<QString, QString> textsIn(const QWidget &form)
{
    QMap<QString, QString> texts;
    for (const LineEdit *field : form.findChildren<LineEdit *>())
        texts[field->objectName()] = field->line();
    return texts;
}

/// Several drives become rows at once, which is for the tests of the editor.
void leaveOneDrive(const QWidget &dialog)
{
    const auto *drives = dialog.findChild<QListWidget *>("DriveList");
    for (qsizetype i = 1; drives && i < drives->selectedItems().size();)
        drives->selectedItems().at(i)->setSelected(false);
}

} // namespace

void RandomUse::addThingsToPick()
{
    accounts.users = QStringList{"root", "a user", "\u00E9tienne"};
    accounts.localGroups = QStringList{"wheel", "a group"};
    directory.contexts = QStringList{"o=x"};
    directory.add("o=x", {"cn", "mail"});
    directory.add("ou=y,o=x", {"cn"});
}

void RandomUse::clickAbout(QWidget &dialog)
{
    const QPointer<QWidget> shown(&dialog);
    for (int count = random.number(0, 4); count > 0 && shown && shown->isVisible(); --count) {
        const QList<QAbstractItemView *> lists = usableIn<QAbstractItemView>(dialog);
        const QList<QRadioButton *> choices = usableIn<QRadioButton>(dialog);
        const QList<QLineEdit *> fields = usableIn<QLineEdit>(dialog);
        const int what = random.number(1, 3);
        if (what == 1 && !lists.isEmpty()) {
            QAbstractItemView *list = random.oneOf(lists);
            list->setFocus();
            key(*list,
                random.oneOf(std::array{Qt::Key_Home, Qt::Key_Down, Qt::Key_Right, Qt::Key_Space, Qt::Key_Left}));
        } else if (what == 2 && !choices.isEmpty()) {
            random.oneOf(choices)->click();
        } else if (what == 3 && !fields.isEmpty()) {
            QLineEdit *field = random.oneOf(fields);
            field->selectAll();
            field->insert(random.text(typedPieces, 3));
        }
    }
}

void RandomUse::takeAway(ConfigForm &document)
{
    if (random.chance(50)) {
        note("its rows vanish");
        list(document).selectAll();
        takeSelection(of(&document));
        expectRemoval(of(&document));
        runReported(messages, [&] { document.Remove_Other(); });
        return;
    }
    note("its document closes");
    told.answers = {Messages::Answer::No};
    document.parentWidget()->close();
    forget(&document);
}

void RandomUse::usePicker()
{
    OpenEditor *editor = anyEditor();
    QList<QPushButton *> buttons = editor ? usableIn<QPushButton>(*editor->form) : QList<QPushButton *>();
    buttons.removeIf([](const QPushButton *each) { return !pickerButtons.contains(each->objectName()); });
    if (buttons.isEmpty())
        return;
    const ItemEditorForm *form = editor->form;
    ConfigForm &target = *editor->target;
    QPushButton *button = random.oneOf(buttons);
    const bool isTakenAway = random.chance(30);
    const bool isConfirmed = random.chance(60);
    note(QString("%1 of %2, %3").arg(button->objectName(), form->objectName()).arg(isConfirmed));
    const QMap<QString, QString> before = textsIn(*form);
    const auto dialog = onNextDialog([&](QWidget &opened) {
        const QPointer<QWidget> shown(&opened);
        clickAbout(opened);
        if (shown)
            leaveOneDrive(opened);
        if (isTakenAway)
            takeAway(target);
        settle();
        const auto *ok = shown ? shown->findChild<QPushButton *>("OKButton") : nullptr;
        if (isConfirmed && ok && ok->isVisible() && ok->isEnabled())
            press(*shown, "OKButton");
    });
    // By an event: its form may be gone before a mouse click comes back.
    QMetaObject::invokeMethod(button, &QPushButton::click, Qt::QueuedConnection);
    QCoreApplication::sendPostedEvents(button, QEvent::MetaCall);
    EXPECT_TRUE(dialog->handled) << "no dialog came";
    // What pickers say and what they give is for their own tests.
    expectedSaid = told.said;
    OpenEditor *still = modelOf(form);
    if (!still)
        return;
    const QMap<QString, QString> after = textsIn(*form);
    for (const QString &name : after.keys()) {
        if (after[name] != before[name])
            still->fields[name] = after[name];
    }
}

void RandomUse::dropFile()
{
    if (documentsOpen.size() >= mostDocuments)
        return closeDocument();
    const QString path = random.chance(10) ? folder.filePath("missing.zcf") : random.oneOf(paths);
    QMimeData data;
    QList<QUrl> urls{QUrl("http://localhost/a.zcf")};
    const bool isFile = random.chance(80);
    if (isFile)
        urls << QUrl::fromLocalFile(path);
    data.setText(random.text(oddPieces, 3));
    data.setUrls(urls);
    note((isFile ? "drop " : "drop no file beside ") + path);
    window->activateWindow();
    EXPECT_EQ(drop(data, *window->centralWidget()), isFile ? Qt::CopyAction : Qt::IgnoreAction);
    if (!isFile)
        return;
    ++created;
    if (const std::optional<QStringList> rows = read(path))
        addOpened(path, path, *rows);
}
