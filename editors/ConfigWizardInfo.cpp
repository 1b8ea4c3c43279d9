#include "editors/ConfigWizardInfo.h"

#include "config/RowList.h"
#include "config/SettingsDocument.h"
#include "editors/LineEdit.h"
#include "editors/RunDialog.h"
#include "settings/FileFilters.h"
#include "settings/OptionButtons.h"
#include "settings/WidenDropDown.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

/// One field of the form. What is empty it does not have.
struct SettingField
{
    SettingKey key;
    QLatin1String tab;
    QLatin1String frame;
    QLatin1String label;
    /// Of the check box that says whether there is such a line at all.
    QLatin1String flag;
    QLatin1String browseButton;
    /// What the file dialog behind it offers before all files.
    QLatin1String filter;
    /// What a drop-down offers.
    std::span<const QLatin1String> choices;
};

namespace {

constexpr std::array<QLatin1String, 11> sensitivities{
    QLatin1String("0"), QLatin1String("1"), QLatin1String("2"),  QLatin1String("3"),
    QLatin1String("4"), QLatin1String("5"), QLatin1String("6"),  QLatin1String("7"),
    QLatin1String("8"), QLatin1String("9"), QLatin1String("10"),
};
constexpr std::array<QLatin1String, 2> databaseTypes{QLatin1String("Disk"), QLatin1String("Mem")};
constexpr std::array<QLatin1String, 7> priorities{
    QLatin1String("idle"), QLatin1String("lowest"),  QLatin1String("low"),      QLatin1String("normal"),
    QLatin1String("high"), QLatin1String("highest"), QLatin1String("critical"),
};

// clang-format off
constexpr QLatin1String files("Files"), notification("Notification"), events("Events"), selfIdent("Self-ident"), execution("Execution");

/// In the order in which they stand on the pages. A field has no frame, label, check box, button or choices where its
/// column says nothing.
constexpr std::array<SettingField, 16> settingFields {{
    {SettingKey::DetectionDb,         files,        {},                                 QLatin1String("Detection database"), {}, QLatin1String("BrowseDB"),  QLatin1String("Zentil DB (*.zdb)|*.zdb|"),       {}},
    {SettingKey::BehaviorDb,          files,        {},                                 QLatin1String("Behavior database"),  {}, QLatin1String("BrowseB"),   QLatin1String("Zentil Behavior (*.bhv)|*.bhv|"), {}},
    {SettingKey::OutputFile,          files,        {},                                 QLatin1String("Output file"),        {}, QLatin1String("BrowseOut"), QLatin1String("Zentil Output (*.zof)|*.zof|"),   {}},
    {SettingKey::MailServer,          notification, {},                                 QLatin1String("SMTP server"),        {}, {}, {}, {}},
    {SettingKey::MailTo,              notification, {},                                 QLatin1String("To e-mail address"),  {}, {}, {}, {}},
    {SettingKey::MailFrom,            notification, {},                                 QLatin1String("From e-mail address"), {}, {}, {}, {}},
    {SettingKey::MailSubject,         notification, {},                                 QLatin1String("Subject"),            {}, {}, {}, {}},
    {SettingKey::MailTempFile,        notification, {},                                 QLatin1String("Temp file"),          {}, {}, {}, {}},
    {SettingKey::EventLog,            events,       QLatin1String("Event Log"),         QLatin1String("Remote server"), QLatin1String("Send events to NT Event Log"), {}, {}, {}},
    {SettingKey::Syslog,              events,       QLatin1String("syslog"),            QLatin1String("Remote server"), QLatin1String("Send events to syslog"), {}, {}, {}},
    {SettingKey::SyslogFacility,      events,       QLatin1String("syslog"),            QLatin1String("Facility"),           {}, {}, {}, {}},
    {SettingKey::SyslogSeverity,      events,       QLatin1String("syslog"),            QLatin1String("Severity"),           {}, {}, {}, {}},
    {SettingKey::MakeconfSensitivity, selfIdent,    QLatin1String("Conf sensitivity"),  {}, {}, {}, {}, sensitivities},
    {SettingKey::AutoCountdownTimer,  selfIdent,    QLatin1String("Countdown"),         QLatin1String("Number of times to execute in self-identification mode"), {}, {}, {}, {}},
    {SettingKey::BehDbType,           selfIdent,    QLatin1String("Behavior Database"), {}, {}, {}, {}, databaseTypes},
    {SettingKey::Priority,            execution,    QLatin1String("Priority"),          {}, {}, {}, {}, priorities},
}};
// clang-format on

/// How much of a field is seen at first, in characters.
constexpr int fieldWidth = 40;

/// Where the first of the fields is that differ from the first one in what a rule looks at.
template<class Column>
std::span<const SettingField> leadingFields(std::span<const SettingField> fields, Column column)
{
    const auto end = std::find_if(fields.begin(), fields.end(),
                                  [&](const SettingField &field) { return field.*column != fields.front().*column; });
    return fields.first(static_cast<size_t>(end - fields.begin()));
}

/// A drop-down with the choices of a field, of which none is chosen. A file may hold any other text: it is shown as it
/// stands.
QComboBox *newDropDown(const SettingField &field, QWidget *parent)
{
    auto *list = new QComboBox(parent);
    list->setEditable(true);
    list->setInsertPolicy(QComboBox::NoInsert);
    list->setLineEdit(new LineEdit(QLatin1String("lineEdit"), list));
    list->setCompleter(nullptr);
    for (const QLatin1String &choice : field.choices)
        list->addItem(choice);
    WidenDropDown(*list);
    list->setCurrentIndex(-1);
    list->setAccessibleName(field.frame);
    return list;
}

} // namespace

ConfigWizardInfo::ConfigWizardInfo(SettingsDocument &document, Messages &messages, QWidget *parent)
    : QDialog(parent)
    , m_document(document)
    , m_tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("ConfigWizardInfo"));
    setWindowTitle(QStringLiteral("Configuration Wizard"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_tabs->setObjectName(QStringLiteral("tbsOptions"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    addPages();
    addOptionButtons(*this, *layout, messages, QStringLiteral("Apply"), [this] { Apply(); });
    connectFlags();
    LoadItems();
    controls(settingFields.front().key).field->setFocus();
}

void ConfigWizardInfo::LoadItems()
{
    m_settings = {};
    const RowList &rows = m_document.rowList();
    for (int row = 0; row < rows.rowCount(); ++row)
        m_settings.ParseItem(rows.at(row), row);
    for (const SettingField &field : settingFields) {
        if (!controls(field.key).isTouched())
            showItem(field.key);
    }
}

void ConfigWizardInfo::MoveCursor(const QString &line)
{
    const std::optional<SettingLine> setting = parseSetting(line);
    if (!setting || !controls(setting->key).field)
        return;
    m_tabs->setCurrentWidget(controls(setting->key).page);
    controls(setting->key).field->setFocus();
}

void ConfigWizardInfo::Apply()
{
    LoadItems();
    SettingsWriter writer(m_document.rowList(), m_settings);
    for (const SettingKey key : settingWriteOrder)
        SetItem(writer, key);
    if (!writer.isEmpty())
        m_document.changeRows([&writer](RowChanges &changes) { writer.apply(changes); });
    for (const SettingField &field : settingFields)
        controls(field.key).remember();
    LoadItems();
}

bool ConfigWizardInfo::Controls::isTouched() const
{
    return text->text() != lastText || (flag && flag->isChecked() != lastFlag);
}

void ConfigWizardInfo::Controls::remember()
{
    lastText = text->text();
    lastFlag = flag && flag->isChecked();
}

void ConfigWizardInfo::addPages()
{
    for (std::span<const SettingField> rest(settingFields); !rest.empty();) {
        const std::span<const SettingField> ofPage = leadingFields(rest, &SettingField::tab);
        auto *page = new QWidget(m_tabs);
        page->setObjectName(QStringLiteral("picOptions_%1").arg(m_tabs->count()));
        auto *layout = new QVBoxLayout(page);
        for (std::span<const SettingField> left = ofPage; !left.empty();) {
            const std::span<const SettingField> ofFrame = leadingFields(left, &SettingField::frame);
            addFrame(*page, ofFrame);
            left = left.subspan(ofFrame.size());
        }
        layout->addStretch();
        m_tabs->addTab(page, ofPage.front().tab);
        rest = rest.subspan(ofPage.size());
    }
}

void ConfigWizardInfo::addFrame(QWidget &page, std::span<const SettingField> fields)
{
    auto *grid = new QGridLayout;
    auto *pageLayout = static_cast<QVBoxLayout *>(page.layout());
    if (fields.front().frame.isEmpty()) {
        pageLayout->addLayout(grid);
    } else {
        auto *frame = new QGroupBox(fields.front().frame, &page);
        frame->setObjectName(QLatin1String("fra") + keyText(fields.front().key));
        frame->setLayout(grid);
        pageLayout->addWidget(frame);
    }
    for (const SettingField &field : fields) {
        controls(field.key).page = &page;
        addField(*grid, field);
    }
}

void ConfigWizardInfo::addField(QGridLayout &layout, const SettingField &field)
{
    Controls &made = controls(field.key);
    if (!field.flag.isEmpty()) {
        made.flag = new QCheckBox(field.flag, this);
        made.flag->setObjectName(QLatin1String("def_flag_") + keyText(field.key));
        layout.addWidget(made.flag, layout.rowCount(), 0, 1, -1, Qt::AlignLeft);
    }

    const int row = layout.rowCount();
    if (field.choices.empty()) {
        made.text = new LineEdit(QLatin1String(), this);
        made.field = made.text;
        made.text->setMinimumWidth(fieldWidth * fontMetrics().averageCharWidth());
    } else {
        QComboBox *list = newDropDown(field, this);
        made.text = list->lineEdit();
        made.field = list;
    }
    made.field->setObjectName(QLatin1String("def_") + keyText(field.key));
    if (field.label.isEmpty()) {
        layout.addWidget(made.field, row, 0, Qt::AlignLeft);
        return;
    }
    auto *label = new QLabel(field.label, this);
    label->setObjectName(QLatin1String("lbl_") + keyText(field.key));
    label->setBuddy(made.field);
    layout.addWidget(label, row, 0);
    layout.addWidget(made.field, row, 1);
    if (!field.browseButton.isEmpty()) {
        auto *button = new QPushButton(QStringLiteral("Browse..."), this);
        button->setObjectName(field.browseButton);
        button->setAccessibleName(tr("Browse for %1").arg(field.label));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, &field] { browse(field); });
        layout.addWidget(button, row, 2);
    }
}

void ConfigWizardInfo::connectFlags()
{
    const auto typingChecks = [this](SettingKey typed, SettingKey checked) {
        connect(controls(typed).text, &QLineEdit::textEdited, controls(checked).flag,
                [flag = controls(checked).flag] { flag->setChecked(true); });
    };
    typingChecks(SettingKey::EventLog, SettingKey::EventLog);
    typingChecks(SettingKey::Syslog, SettingKey::Syslog);
    typingChecks(SettingKey::SyslogFacility, SettingKey::Syslog);
    typingChecks(SettingKey::SyslogSeverity, SettingKey::Syslog);
}

void ConfigWizardInfo::showItem(SettingKey key)
{
    Controls &shown = controls(key);
    const QString &value = m_settings.value(key);
    // After it has been written a value shows its quotes. The server of a box that is not checked stays at hand.
    const bool isShown = shown.text->text() == quotedValue(value) ||
                         (shown.flag && !shown.flag->isChecked() && !m_settings.contains(key));
    if (!isShown)
        shown.text->setText(value);
    if (shown.flag)
        shown.flag->setChecked(m_settings.contains(key));
    shown.remember();
}

void ConfigWizardInfo::SetItem(SettingsWriter &writer, SettingKey key)
{
    const Controls &shown = controls(key);
    const QString value = quotedValue(static_cast<LineEdit *>(shown.text)->line());
    if (value != shown.text->text())
        shown.text->setText(value);
    if (!shown.flag)
        writer.SetItem(key, value);
    else if (shown.flag->isChecked())
        writer.SetItem(key, value, SettingsWriter::Empty::IsKept);
    else
        writer.SetItem(key, {});
}

void ConfigWizardInfo::browse(const SettingField &field)
{
    auto *dialog = new QFileDialog(this, QStringLiteral("Open"));
    dialog->setObjectName(QStringLiteral("CommonDialog"));
    // Zentil makes the file when it is not there.
    dialog->setFileMode(QFileDialog::AnyFile);
    setFileFilters(*dialog, field.filter + QStringLiteral("All Files (*.*)|*.*"));
    runDialog(dialog, [&](int result) {
        if (result == QDialog::Accepted && !dialog->selectedFiles().isEmpty())
            controls(field.key).text->setText(QDir::toNativeSeparators(dialog->selectedFiles().constFirst()));
    });
}
