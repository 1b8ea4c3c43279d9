#include "editors/FlagEditorForm.h"
#include "editors/LineEdit.h"
#include "tests/integration/RandomUse.h"

#include <QCheckBox>
#include <QComboBox>

#include <array>

namespace {

constexpr int mostEditors = 6;

const QStringList settingFields{"MAILTO",   "MAILFROM", "MAILSUBJECT",    "DETECTIONDB",
                                "EVENTLOG", "SYSLOG",   "SYSLOGFACILITY", "PRIORITY"};

} // namespace

OpenEditor *RandomUse::modelOf(const ItemEditorForm *form)
{
    const auto found = std::find_if(editorsOpen.begin(), editorsOpen.end(),
                                    [form](const OpenEditor &each) { return each.form == form; });
    return found == editorsOpen.end() ? nullptr : &*found;
}

void RandomUse::addByEditor()
{
    OpenDocument *document = active();
    if (!document || editorsOpen.size() >= mostEditors)
        return;
    const ItemKindRow kind = random.oneOf(itemKinds);
    note("add " + kind.displayName);
    document->form->AddNew(kind.displayName);
    for (ItemEditorForm *form : openEditors()) {
        if (modelOf(form))
            continue;
        EXPECT_EQ(form->objectName(), QString(kind.editor));
        editorsOpen.push_back({form, document->form, true, -1, {}});
        if (kind.kind == ItemKind::File)
            editorsOpen.back().fields["ObjectName"] = "C:\\";
    }
}

void RandomUse::editRow()
{
    OpenDocument *document = active();
    if (!document || editorsOpen.size() >= mostEditors)
        return;
    const int row = document->plain.document.current;
    const QString text = row < 0 ? QString() : document->plain.document.rows[row].text;
    ItemKindRow kind = random.oneOf(itemKinds);
    const bool isByMenu = random.chance(50);
    if (!isByMenu)
        kind = itemKindRow(static_cast<ItemKind>(plain::kindOf(text)));
    note(QString("edit row %1 by %2").arg(row).arg(kind.displayName));
    if (isByMenu)
        trigger(*window, ("mnuItemEdit" + menuNameOf(kind.kind)).constData());
    else
        press(*document->form, "EditButton");
    if (!isCurrentThere(*document))
        return;
    const auto shared = std::find_if(editorsOpen.begin(), editorsOpen.end(), [&](const OpenEditor &each) {
        return !each.isNew && each.form && each.form->objectName() == kind.editor;
    });
    OpenEditor editor;
    if (shared != editorsOpen.end()) {
        editor.form = shared->form;
        editorsOpen.erase(shared);
    } else {
        for (ItemEditorForm *form : openEditors()) {
            if (!modelOf(form))
                editor.form = form;
        }
    }
    editor.target = document->form;
    editor.row = row;
    if (!isShown(kind.kind, text, editor))
        return expectSaid(RuntimeError(RuntimeError::InvalidCall).message());
    EXPECT_TRUE(editor.form && editor.form->isVisible() && editor.form->objectName() == kind.editor);
    if (editor.form)
        editorsOpen.push_back(editor);
}

QByteArray RandomUse::menuNameOf(ItemKind kind)
{
    static constexpr std::array names{"Other", "File", "Reg",   "Line",   "User",
                                      "Group", "LDAP", "Right", "Policy", "Audit"};
    return names.at(size_t(kind));
}

bool RandomUse::isShown(ItemKind kind, const QString &line, OpenEditor &editor)
{
    editor.fields["Item"] = line;
    if (kind == ItemKind::Line)
        return true;
    try {
        const plain::Parts parts = plain::parseAsDocument(line);
        const qsizetype tag = kind == ItemKind::User ? 7 : kind == ItemKind::Group ? 8 : 0;
        editor.fields["ObjectName"] = parts.object.mid(tag);
        editor.fields["Prefix"] = parts.prefix;
        editor.fields["ObjectFlags"] = parts.flags;
    } catch (const plain::NegativeLength &) {
        return false;
    }
    return true;
}

OpenEditor *RandomUse::anyEditor()
{
    return editorsOpen.empty() ? nullptr : &editorsOpen[size_t(random.number(0, int(editorsOpen.size()) - 1))];
}

void RandomUse::type()
{
    OpenEditor *editor = anyEditor();
    if (!editor)
        return;
    QList<LineEdit *> fields = editor->form->findChildren<LineEdit *>();
    fields.removeIf([](const LineEdit *field) { return !field->isVisible() || !field->isEnabled(); });
    if (fields.isEmpty())
        return;
    LineEdit *field = random.oneOf(fields);
    const QString text = random.text(typedPieces, 5);
    note(QString("type %1 in %2 of %3").arg(text, field->objectName(), editor->form->objectName()));
    field->selectAll();
    field->insert(text);
    editor->fields[field->objectName()] = QString(text).replace('\r', ' ').replace('\n', ' ');
}

void RandomUse::checkFlags()
{
    OpenEditor *editor = anyEditor();
    QList<QCheckBox *> boxes = editor ? editor->form->findChildren<QCheckBox *>() : QList<QCheckBox *>();
    if (boxes.isEmpty())
        return;
    QCheckBox *box = random.oneOf(boxes);
    note(QString("check %1 of %2").arg(box->objectName(), editor->form->objectName()));
    const bool isWarned = editor->form->objectName() == "ConfigDialogNew" && !box->isChecked();
    told.answers = {random.oneOf(std::array{Messages::Answer::Yes, Messages::Answer::No})};
    box->click();
    if (isWarned && box->objectName() == "flag_a" && !told.said.isEmpty())
        expectSaid(told.said.first());
}

void RandomUse::confirmEditor()
{
    OpenEditor *editor = anyEditor();
    if (!editor)
        return;
    ItemEditorForm *form = editor->form;
    const QString name = form->objectName();
    OpenDocument &target = of(editor->target);
    note(QString("confirm %1 for %2, row %3").arg(name, target.plain.caption).arg(editor->row));
    const plain::Parts parts = partsIn(*editor);
    const qsizetype count = target.plain.document.rows.size();
    const auto answer = random.oneOf(std::array{Messages::Answer::Yes, Messages::Answer::No});
    told.answers = {answer};
    press(*form, "OKButton");
    if (isRefused(name, parts, answer))
        return;
    if (!editor->isNew && editor->row >= count) {
        return expectSaid(
            RuntimeError(RuntimeError::InvalidCall, {}, "The line that was edited is not there any more.").message());
    }
    const int current = target.plain.document.current;
    QString line =
        plain::assemble(plain::shown(parts.object), parts.prefix, parts.flags, !editor->isNew || current >= 0);
    // How rights are put together is for the test of their text.
    if (name == "ConfigDialogRight") {
        line = target.form->rowList().rows().value(!editor->isNew ? editor->row : current >= 0 ? current : int(count));
        EXPECT_TRUE(line.contains("USERRIGHT:") && line.endsWith(parts.flags)) << line.toStdString();
    }
    if (editor->isNew)
        target.plain.insertLine(line);
    else
        target.plain.change(editor->row, line);
    if (!editor->isNew || name == "ConfigDialogPolicy" || name == "ConfigDialogAudit")
        std::erase_if(editorsOpen, [form](const OpenEditor &each) { return each.form == form; });
}

plain::Parts RandomUse::partsIn(const OpenEditor &editor)
{
    const QString name = editor.form->objectName();
    if (name == "ConfigDialogMisc")
        return {editor.fields["Item"], {}, {}};
    plain::Parts parts;
    auto *flagForm = qobject_cast<FlagEditorForm *>(editor.form.data());
    parts.flags = flagForm ? flagForm->BuildFlags() : editor.fields["ObjectFlags"];
    parts.object = objectOf(name, editor.fields["ObjectName"]);
    if (name == "ConfigDialogLDAP")
        parts.prefix = control<QComboBox>(*editor.form, "PreBox")->currentText().section(" - ", 0, 0);
    else if (name != "ConfigDialogRight" && name != "ConfigDialogPolicy" && name != "ConfigDialogAudit")
        parts.prefix = editor.fields["Prefix"];
    return parts;
}

bool RandomUse::isRefused(const QString &form, const plain::Parts &parts, Messages::Answer answer)
{
    if (form == "ConfigDialogLDAP") {
        // Which flags it asks for is for the test of that form.
        const QString said = told.said.value(0);
        const bool isAsked = said.contains("Would you like to add the hash now?");
        const bool isTold = said == "You must specify at least one flag.";
        if (isAsked || isTold)
            expectSaid(said);
        return isTold || (isAsked && answer == Messages::Answer::Yes);
    }
    const QStringList needNone{"ConfigDialogMisc", "ConfigDialogPolicy", "ConfigDialogAudit", "ConfigDialogRight"};
    if (needNone.contains(form) || !parts.flags.isEmpty() || parts.prefix.startsWith('!'))
        return false;
    expectSaid("You must select at least one flag.");
    return true;
}

QString RandomUse::objectOf(const QString &form, QString object)
{
    if (form == "ConfigDialogNew" && object.endsWith('\\') && !object.endsWith(":\\"))
        object.chop(1);
    if (form == "ConfigDialogReg" && !object.contains('\\'))
        object += '\\';
    if (form == "ConfigDialogUser" || form == "ConfigDialogGroup") {
        while (object.startsWith(' '))
            object.remove(0, 1);
        object.prepend(form == "ConfigDialogUser" ? "NTUSER:" : "NTGROUP:");
    }
    if (form == "ConfigDialogLDAP") {
        while (object.startsWith(' '))
            object.remove(0, 1);
        while (object.endsWith(' '))
            object.chop(1);
        if (!object.toUpper().startsWith("LDAP:"))
            object.prepend("LDAP:");
    }
    if (form == "ConfigDialogPolicy")
        return "ACCOUNTPOLICY";
    return form == "ConfigDialogAudit" ? "AUDITPOLICY" : object;
}

void RandomUse::cancelEditor()
{
    OpenEditor *editor = anyEditor();
    if (!editor)
        return;
    ItemEditorForm *form = editor->form;
    note("cancel " + form->objectName());
    if (random.chance(50))
        press(*form, "CancelButton");
    else
        key(*form, Qt::Key_Escape);
    std::erase_if(editorsOpen, [form](const OpenEditor &each) { return each.form == form; });
}

QMap<QString, plain::SettingShown> RandomUse::shownIn(const ConfigWizardInfo &wizard)
{
    QMap<QString, plain::SettingShown> result;
    for (const QLatin1String key : settingKeys) {
        const auto *field = wizard.findChild<QWidget *>(QLatin1String("def_") + key);
        if (!field)
            continue;
        const auto *choices = qobject_cast<const QComboBox *>(field);
        const auto *flag = wizard.findChild<QCheckBox *>(QLatin1String("def_flag_") + key);
        result[key] = {choices ? choices->currentText() : static_cast<const QLineEdit *>(field)->text(),
                       flag && flag->isChecked()};
    }
    return result;
}

void RandomUse::openWizard()
{
    OpenDocument *document = active();
    if (!document)
        return;
    note("open the wizard");
    auto known = std::find_if(wizardsOpen.begin(), wizardsOpen.end(),
                              [&](const OpenWizard &each) { return each.target == document->form; });
    const auto before = known == wizardsOpen.end() ? QMap<QString, plain::SettingShown>() : shownIn(*known->form);
    trigger(*window, "mnuItemWizard");
    if (known == wizardsOpen.end()) {
        for (ConfigWizardInfo *form : openWizards()) {
            if (std::none_of(wizardsOpen.begin(), wizardsOpen.end(),
                             [form](const OpenWizard &each) { return each.form == form; })) {
                wizardsOpen.push_back({form, document->form, shownIn(*form)});
                return;
            }
        }
        ADD_FAILURE() << "no wizard came";
        return;
    }
    const auto now = shownIn(*known->form);
    for (const QString &key : now.keys()) {
        if (before[key] == known->inStep[key])
            known->inStep[key] = now[key];
        else
            EXPECT_EQ(now[key].text, before[key].text);
    }
}

void RandomUse::useWizard()
{
    if (wizardsOpen.empty())
        return openWizard();
    const auto at = wizardsOpen.begin() + random.number(0, int(wizardsOpen.size()) - 1);
    ConfigWizardInfo &form = *at->form;
    if (random.chance(60)) {
        const QString key = random.oneOf(settingFields);
        auto *field = form.findChild<QWidget *>("def_" + key);
        auto *flag = form.findChild<QCheckBox *>("def_flag_" + key);
        note("wizard: enter " + key);
        if (flag && random.chance(50))
            return flag->click();
        auto *choices = qobject_cast<QComboBox *>(field);
        auto *edit = choices ? choices->lineEdit() : static_cast<QLineEdit *>(field);
        edit->selectAll();
        edit->insert(random.text(typedPieces, 3));
        return;
    }
    if (random.chance(20)) {
        note("wizard: cancel");
        press(form, "cmdCancel");
        wizardsOpen.erase(at);
        return;
    }
    const bool isClosed = random.chance(30);
    note(isClosed ? "wizard: OK" : "wizard: apply");
    const auto shown = shownIn(form);
    QStringList touched;
    for (const QString &key : shown.keys()) {
        if (shown[key] != at->inStep[key])
            touched << key;
    }
    press(form, isClosed ? "cmdOK" : "cmdApply");
    OpenDocument &target = of(at->target);
    target.plain.applySettings(shown, touched);
    takeSelection(target);
    if (isClosed)
        wizardsOpen.erase(at);
    else
        at->inStep = shownIn(form);
}
