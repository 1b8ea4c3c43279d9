#include "tests/integration/RandomUse.h"

#include <QAction>
#include <QClipboard>

#include <array>

namespace {

constexpr int manyRows = 40;

} // namespace

OpenDocument *RandomUse::active()
{
    for (OpenDocument &each : documentsOpen) {
        if (each.form == window->activeDocument())
            return &each;
    }
    return nullptr;
}

OpenDocument &RandomUse::of(const ConfigForm *form)
{
    return *std::find_if(documentsOpen.begin(), documentsOpen.end(),
                         [form](const OpenDocument &each) { return each.form == form; });
}

void RandomUse::takeSelection(OpenDocument &document)
{
    const RowSelection selection = list(*document.form).rowSelection();
    document.plain.document.current = selection.current;
    for (int i = 0; i < document.plain.document.rows.size(); ++i)
        document.plain.document.rows[i].isSelected = selection.contains(i);
}

void RandomUse::addOpened(const QString &caption, const QString &path, const QStringList &rows)
{
    OpenDocument document{window->documents().back(), {}};
    document.plain.load(rows);
    document.plain.caption = caption;
    document.plain.path = path;
    documentsOpen.push_back(document);
}

std::optional<QStringList> RandomUse::read(const QString &path)
{
    if (!disk.contains(path)) {
        expectSaid(RuntimeError(RuntimeError::FileNotFound, path).message());
        return {};
    }
    try {
        return plain::rowsOf(disk[path]);
    } catch (const plain::NegativeLength &) {
        expectSaid(RuntimeError(RuntimeError::InvalidCall, path, "The file holds only empty lines.").message());
        return {};
    }
}

void RandomUse::openFile()
{
    if (documentsOpen.size() >= mostDocuments)
        return closeDocument();
    const QString path = random.chance(5) ? folder.filePath("missing.zcf") : random.oneOf(paths);
    note("open " + path);
    window->LoadAll({path});
    if (!disk.contains(path))
        return expectSaid("File " + path + " not found");
    ++created;
    if (const std::optional<QStringList> rows = read(path))
        addOpened(path, path, *rows);
}

void RandomUse::newDocument()
{
    if (documentsOpen.size() >= mostDocuments)
        return closeDocument();
    note("new document");
    trigger(*window, "mnuFileNew");
    addOpened(QString("Document %1").arg(++created), {}, {});
}

void RandomUse::activateAny()
{
    if (documentsOpen.empty())
        return;
    ConfigForm *form = documentsOpen[size_t(random.number(0, int(documentsOpen.size()) - 1))].form;
    note("activate " + form->caption());
    window->activateWindow();
    activate(*form);
    EXPECT_EQ(window->activeDocument(), form);
}

void RandomUse::reload()
{
    OpenDocument *document = active();
    if (!document)
        return;
    note("reload");
    try {
        document->form->Reload();
    } catch (const RuntimeError &error) {
        told.show(error.message(), Messages::Icon::Critical, {});
    }
    if (const std::optional<QStringList> rows = read(document->plain.path)) {
        document->plain.load(*rows);
        document->plain.caption = "Configuration";
    }
}

SavePlan RandomUse::planSave()
{
    SavePlan plan;
    plan.fails = random.chance(10);
    if (random.chance(70))
        plan.chosen = random.oneOf(paths);
    plan.mayReplace = random.oneOf(std::array{Messages::Answer::Yes, Messages::Answer::No});
    return plan;
}

void RandomUse::runSave(const SavePlan &plan, bool hasDialog, const std::function<void()> &gesture)
{
    if (plan.fails)
        fakeFiles.writeError = RuntimeError(RuntimeError::DiskFull, "f");
    std::shared_ptr<DialogProof> dialog;
    if (hasDialog) {
        dialog = onNextDialog([&](QWidget &shown) {
            if (!plan.chosen.isEmpty())
                chooseInFileDialog(shown, plan.chosen);
        });
    }
    gesture();
    EXPECT_TRUE(!dialog || dialog->handled) << "no dialog came";
    fakeFiles.writeError.reset();
}

bool RandomUse::expectSave(const SavePlan &plan, plain::UsedDocument &document, bool isByForm)
{
    const bool isAsked = document.path.isEmpty();
    const QString path = isAsked ? plan.chosen : document.path;
    const bool isReplaced = isAsked && disk.contains(path);
    if (isReplaced)
        expectSaid(QString("\"%1\" exists already. Do you want to replace it?").arg(path));
    if (path.isEmpty() || (isReplaced && plan.mayReplace == Messages::Answer::No)) {
        if (isByForm)
            document.changed = 0;
        return true;
    }
    if (plan.fails) {
        expectSaid(RuntimeError(RuntimeError::DiskFull, "f").message());
        return false;
    }
    disk[path] = plain::bytesOf(document.document.texts());
    document.changed = 0;
    document.path = path;
    if (isAsked)
        document.caption = path;
    return true;
}

void RandomUse::save()
{
    OpenDocument *document = active();
    if (!document) {
        note("save nothing");
        trigger(*window, "mnuFileSave");
        return expectSaid("No window is selected. Please select the window to Save");
    }
    const SavePlan plan = planSave();
    const bool isByForm = random.chance(50);
    note(QString("save %1, %2, %3").arg(isByForm).arg(plan.fails).arg(plan.chosen));
    told.answers = {plan.mayReplace};
    runSave(plan, document->plain.path.isEmpty(), [&] {
        if (isByForm)
            press(*document->form, "ApplyButton");
        else
            trigger(*window, "mnuFileSave");
    });
    expectSave(plan, document->plain, isByForm);
}

void RandomUse::forget(const ConfigForm *form)
{
    std::erase_if(editorsOpen, [form](const OpenEditor &each) { return each.target == form; });
    std::erase_if(wizardsOpen, [form](const OpenWizard &each) { return each.target == form; });
    std::erase_if(documentsOpen, [form](const OpenDocument &each) { return each.form == form; });
}

void RandomUse::closeDocument()
{
    OpenDocument *document = active();
    if (!document)
        return;
    const SavePlan plan = planSave();
    const auto answer = random.oneOf(std::array{Messages::Answer::Yes, Messages::Answer::No, Messages::Answer::Cancel});
    const bool isAsked = document->plain.changed != 0;
    const bool isSaved = isAsked && answer == Messages::Answer::Yes;
    note(QString("close, %1, %2, %3").arg(int(answer)).arg(plan.fails).arg(plan.chosen));
    told.answers = {answer, plan.mayReplace};
    runSave(plan, isSaved && document->plain.path.isEmpty(), [&] {
        if (random.chance(50))
            press(*document->form, "CloseButton");
        else
            trigger(*window, "mnuFileClose");
    });
    if (isAsked)
        expectSaid("The configuration has changed. Save changes before closing?");
    if (isAsked && answer == Messages::Answer::Cancel)
        return;
    if (!isSaved || expectSave(plan, document->plain, true))
        forget(document->form);
}

void RandomUse::endProgram()
{
    if (!random.chance(20))
        return;
    bool isEnding = true;
    std::deque<Messages::Answer> answers;
    for (OpenDocument &each : documentsOpen) {
        if (each.plain.changed == 0)
            continue;
        auto answer = random.chance(80) ? Messages::Answer::No : Messages::Answer::Cancel;
        if (!each.plain.path.isEmpty() && random.chance(50))
            answer = Messages::Answer::Yes;
        answers.push_back(answer);
        expectSaid("The configuration has changed. Save changes before closing?");
        if (answer == Messages::Answer::Yes)
            expectSave({}, each.plain, true);
        isEnding = answer != Messages::Answer::Cancel;
        if (!isEnding)
            break;
    }
    note(QString("end the program, %1").arg(isEnding));
    told.answers = answers;
    EXPECT_EQ(endsAfterClosing(), isEnding);
    if (!isEnding)
        return;
    while (!documentsOpen.empty())
        forget(documentsOpen.back().form);
    settle();
    EXPECT_TRUE(window->documents().empty());
    window.reset();
    startProgram();
}

void RandomUse::select()
{
    OpenDocument *document = active();
    if (!document || document->plain.document.rows.isEmpty())
        return;
    ConfigListView &view = list(*document->form);
    if (random.chance(3)) {
        note("select all");
        view.setFocus();
        key(view, Qt::Key_A, Qt::ControlModifier);
    } else {
        const int row = random.number(0, int(document->plain.document.rows.size()) - 1);
        const auto modifiers = random.oneOf(std::array<Qt::KeyboardModifiers, 4>{
            Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier});
        note(QString("click row %1 with %2").arg(row).arg(int(modifiers)));
        clickRow(view, row, modifiers);
    }
    takeSelection(*document);
}

bool RandomUse::isCurrentThere(const OpenDocument &document)
{
    if (document.plain.document.current >= 0)
        return true;
    expectSaid("No item selected");
    return false;
}

void RandomUse::expectRemoval(OpenDocument &document)
{
    if (isCurrentThere(document) && !document.plain.document.selected().isEmpty())
        document.plain.removeSelected();
}

void RandomUse::remove()
{
    OpenDocument *document = active();
    if (!document)
        return;
    note("remove");
    if (random.chance(50))
        press(*document->form, "RemoveButton");
    else
        trigger(*window, "mnuItemDelete");
    expectRemoval(*document);
}

void RandomUse::move()
{
    OpenDocument *document = active();
    if (!document)
        return;
    const bool isUp = random.chance(50);
    note(isUp ? "move up" : "move down");
    press(*document->form, isUp ? "MoveUpButton" : "MoveDownButton");
    if (!document->plain.move(isUp))
        expectSaid(isUp ? "Cannot shift up first row." : "Cannot shift down last row.");
}

void RandomUse::comment()
{
    OpenDocument *document = active();
    if (!document)
        return;
    note("comment");
    trigger(*window, "mnuItemTextComment");
    document->plain.toggleComments();
}

QString RandomUse::selectedText(const OpenDocument &document)
{
    QStringList texts;
    for (const int row : document.plain.document.selected())
        texts << document.plain.document.rows[row].text;
    return texts.join("\r\n");
}

void RandomUse::copyOrCut()
{
    OpenDocument *document = active();
    if (!document)
        return;
    const bool isCut = random.chance(40);
    note(isCut ? "cut" : "copy");
    trigger(*window, isCut ? "mnuEditCut" : "mnuEditCopy");
    if (!document->plain.document.selected().isEmpty())
        clipboard = selectedText(*document);
    if (isCut)
        expectRemoval(*document);
}

void RandomUse::paste()
{
    OpenDocument *document = active();
    if (!document)
        return;
    if (document->plain.document.rows.size() > manyRows) {
        list(*document->form).setFocus();
        key(list(*document->form), Qt::Key_A, Qt::ControlModifier);
        takeSelection(*document);
        return remove();
    }
    if (random.chance(30)) {
        clipboard = random.text(typedPieces + oddPieces, 8);
        QGuiApplication::clipboard()->setText(clipboard);
    }
    note("paste " + clipboard);
    trigger(*window, "mnuEditPaste");
    document->plain.paste(clipboard);
}

void RandomUse::undo()
{
    OpenDocument *document = active();
    if (!document)
        return;
    const bool isEnabled = control<QAction>(*window, "mnuEditUndo")->isEnabled();
    EXPECT_EQ(isEnabled, document->plain.isUndoEnabled);
    note(QString("undo, %1").arg(isEnabled));
    if (isEnabled)
        trigger(*window, "mnuEditUndo");
    else
        document->form->mnuEditUndo_Click();
    if (!document->plain.canUndo())
        return expectSaid("Cannot undo");
    document->plain.undo();
    const RowSelection selection = list(*document->form).rowSelection();
    EXPECT_TRUE(selection.current < 0 ? selection.rows.empty() : selection.rows == std::vector{selection.current});
    takeSelection(*document);
}
