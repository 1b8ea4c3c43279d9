#include "editors/ItemEditorForm.h"

#include "browse/DialogButtons.h"
#include "config/ItemDocument.h"
#include "editors/ConfigDialogPrefix.h"
#include "editors/LineEdit.h"
#include "platform/Messages.h"
#include "settings/RunReported.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>

namespace {

/// How much of a field is seen at first, in characters.
constexpr int fieldWidth = 50;

} // namespace

ItemEditorForm::ItemEditorForm(QLatin1String name, const QString &title, Messages &messages, QWidget *parent)
    : QDialog(parent)
    , m_messages(messages)
    , m_layout(new QVBoxLayout(this))
    , m_fields(new QGridLayout)
{
    setObjectName(name);
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    m_fields->setColumnMinimumWidth(1, fieldWidth * fontMetrics().averageCharWidth());
    m_layout->addLayout(m_fields);
}

void ItemEditorForm::setOKButtonCaption(const QString &caption)
{
    m_okButton->setText(caption);
}

void ItemEditorForm::SetItem(const QString &line)
{
    auto closing = qScopeGuard([this] { close(); });
    showItem(line);
    closing.dismiss();
}

void ItemEditorForm::Show()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    firstControl()->setFocus();
}

LineEdit *ItemEditorForm::addField(QLatin1String name, QLatin1String labelName, const QString &label,
                                   const QString &toolTip)
{
    auto *field = new LineEdit(name, this);
    field->setToolTip(toolTip);
    addControl(*field, labelName, label);
    return field;
}

void ItemEditorForm::addControl(QWidget &control, QLatin1String labelName, const QString &label)
{
    const int row = m_fields->rowCount();
    auto *labelInFront = new QLabel(label, this);
    labelInFront->setObjectName(labelName);
    labelInFront->setBuddy(&control);
    m_fields->addWidget(labelInFront, row, 0);
    m_fields->addWidget(&control, row, 1);
}

QPushButton *ItemEditorForm::addButtonBehind(QLatin1String name, const QString &caption, const QString &toolTip)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    m_fields->addWidget(button, m_fields->rowCount() - 1, 2);
    return button;
}

LineEdit *ItemEditorForm::addPrefixField(QLatin1String labelName)
{
    LineEdit *prefix = addField(QLatin1String("Prefix"), labelName, QStringLiteral("Prefix"),
                                QStringLiteral("Modify how the object and its children will be checked"));
    QPushButton *query = addButtonBehind(QLatin1String("ButtonPrefixQuery"), tr("&Prefix..."),
                                         QStringLiteral("Show a list of available prefixes"));
    connect(query, &QPushButton::clicked, this, [this, prefix] {
        auto *chooser = new ConfigDialogPrefix(*prefix, this);
        chooser->setAttribute(Qt::WA_DeleteOnClose);
        chooser->exec();
    });
    return prefix;
}

void ItemEditorForm::addPart(QWidget &part, Grows grows, Qt::Alignment alignment)
{
    m_layout->addWidget(&part, grows == Grows::Yes ? 1 : 0, alignment);
}

void ItemEditorForm::addButtons(const QString &okCaption, const QString &cancelCaption)
{
    m_okButton = addDialogButtons(*this, *m_layout, okCaption, cancelCaption);
    connect(m_okButton, &QPushButton::clicked, this, [this] { runReported(m_messages, [this] { confirm(); }); });
}

bool ItemEditorForm::requireFlags(const QString &flags, const QString &prefix)
{
    if (!flags.isEmpty() || prefix.startsWith(u'!'))
        return true;
    m_messages.show(QStringLiteral("You must select at least one flag."), Messages::Icon::Exclamation);
    return false;
}

void ItemEditorForm::handOver(const Item &item)
{
    if (m_isNew)
        m_document->ItemAddFile(item.object, item.prefix, item.flags);
    else
        m_document->ItemChangeFile(item.object, item.prefix, item.flags, m_row);
}

void ItemEditorForm::confirm()
{
    const std::optional<Item> item = collectItem();
    if (!item)
        return;
    handOver(*item);
    if (!m_isNew || m_afterAdding == AfterAdding::Closes)
        close();
}

QWidget *ItemEditorForm::firstControl() const
{
    QWidget *control = nextInFocusChain();
    while (!(control->focusPolicy() & Qt::TabFocus) || !control->isEnabled() || !control->isVisibleTo(this))
        control = control->nextInFocusChain();
    return control;
}
