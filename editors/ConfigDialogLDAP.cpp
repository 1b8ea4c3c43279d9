#include "editors/ConfigDialogLDAP.h"

#include "browse/BrowseLDAP.h"
#include "config/ConfigLine.h"
#include "editors/EditorServices.h"
#include "editors/FlagAlphabets.h"
#include "editors/FlagPanel.h"
#include "editors/FlagText.h"
#include "editors/LineEdit.h"
#include "editors/RunDialog.h"
#include "platform/Messages.h"

#include <QComboBox>
#include <QPushButton>
#include <QRegularExpression>

#include <array>

namespace {

constexpr QLatin1String tag("LDAP:");

struct Prefix
{
    QLatin1String prefix;
    QLatin1String caption;
};

// clang-format off
/// What PreBox offers.
constexpr std::array<Prefix, 4> prefixes {{
    {QLatin1String(""),   QLatin1String("")},
    {QLatin1String("!"),  QLatin1String("! - exclude attributes")},
    {QLatin1String("!!"), QLatin1String("!! - exclude sub-branches & attributes")},
    {QLatin1String("="),  QLatin1String("= - affect one level")},
}};
// clang-format on

/// The number that a text begins with; 0 when it begins with none.
double leadingNumber(const QString &text)
{
    static const QRegularExpression number(
        QStringLiteral("^\\s*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)"));
    return number.match(text).captured(1).toDouble();
}

} // namespace

ConfigDialogLDAP::ConfigDialogLDAP(const EditorServices &services, QWidget *parent)
    : FlagEditorForm(QLatin1String("ConfigDialogLDAP"), QStringLiteral("Directory Service (LDAP)"), services.messages,
                     parent)
    , m_directory(services.directory)
    , m_scrambler(services.scrambler)
    , m_preBox(new QComboBox(this))
{
    addPrefixes();
    m_objectName = addObjectField(QStringLiteral("LDAP query (RFC 2254 format)"));
    connect(addButtonBehind(QLatin1String("ObjBrowse"), QStringLiteral("Browse...")), &QPushButton::clicked, this,
            &ConfigDialogLDAP::browse);
    m_flags = addFlags(directoryServiceFlags);
    addButtons(QStringLiteral("&OK"), QStringLiteral("Cancel"));
}

void ConfigDialogLDAP::SetDefaultItem()
{
    m_objectName->setLine({});
}

void ConfigDialogLDAP::SetAllFlags(int value)
{
    m_flags->SetAllFlags(value);
}

QString ConfigDialogLDAP::object() const
{
    const QString text = trimSpaces(FlagEditorForm::object());
    return text.startsWith(tag, Qt::CaseInsensitive) ? text : tag + text;
}

void ConfigDialogLDAP::showPrefix(const QString &prefix)
{
    // One that is not offered leaves what is shown, and so is not written back.
    for (size_t i = 0; i < prefixes.size(); ++i) {
        if (!prefix.isEmpty() && prefix == prefixes[i].prefix)
            m_preBox->setCurrentIndex(int(i));
    }
}

QString ConfigDialogLDAP::prefix() const
{
    return prefixes[size_t(m_preBox->currentIndex())].prefix;
}

bool ConfigDialogLDAP::acceptsFlags(const QString &)
{
    const FlagText parts = m_flags->parts();
    const FlagText::Option &storedData = parts.options.front();
    if (storedData.isChecked && parts.letters.isEmpty() && leadingNumber(storedData.text) > 0) {
        const QString question = QStringLiteral(
            "You chose to store data with a threshold greater than 0, but did not specify a hash of MD5 or SHA so no "
            "hashes will be stored. It is recommended that you specify a hash. Would you like to add the hash now?");
        return messages().ask(question, Messages::Buttons::YesNo) == Messages::Answer::No;
    }
    // Other flags alone are not enough.
    if (storedData.isChecked || !parts.letters.isEmpty())
        return true;
    messages().show(QStringLiteral("You must specify at least one flag."), Messages::Icon::Exclamation);
    return false;
}

void ConfigDialogLDAP::addPrefixes()
{
    m_preBox->setObjectName(QStringLiteral("PreBox"));
    for (const Prefix &prefix : prefixes)
        m_preBox->addItem(prefix.caption);
    addControl(*m_preBox, QLatin1String("Label2"), QStringLiteral("Container"));
}

void ConfigDialogLDAP::browse()
{
    setCursor(Qt::WaitCursor);
    auto *browser = new BrowseLDAP(m_directory, m_scrambler, messages(), this);
    browser->SetItem(m_objectName->line());
    runDialog(browser, [&](int result) {
        if (result == QDialog::Accepted)
            m_objectName->setLine(browser->url());
        unsetCursor();
    });
}
