#include "settings/Associations.h"

#include "platform/FileTypes.h"
#include "platform/Messages.h"
#include "platform/Registry.h"
#include "platform/RuntimeError.h"
#include "platform/UserSettings.h"
#include "settings/ClassesChange.h"

#include <array>

namespace {

/// The name of an extension's file type: ".zcf" has "zcffile".
QString typeName(const QString &extension)
{
    return extension.sliced(1) + QStringLiteral("file");
}

struct Association
{
    QString programPath;
    QString description;
    QString extension;
};

struct Entry
{
    QString path;
    QString text;
};

Entry commandEntry(const QString &programPath, const QString &extension)
{
    return {typeName(extension) + QStringLiteral("\\shell\\open\\command"),
            QStringLiteral("\"%1\" \"%2\"").arg(programPath, QStringLiteral("%1"))};
}

/// What is written below HKEY_CLASSES_ROOT, in this order.
std::array<Entry, 4> entriesOf(const Association &association)
{
    const QString type = typeName(association.extension);
    return {{
        {association.extension, type},
        {type, association.description},
        {type + QStringLiteral("\\DefaultIcon"), association.programPath + QStringLiteral(",0")},
        commandEntry(association.programPath, association.extension),
    }};
}

} // namespace

Associations::Associations(const QString &title, Registry &registry, FileTypes &fileTypes, UserSettings &userSettings,
                           Messages &messages)
    : m_title(title)
    , m_registry(registry)
    , m_fileTypes(fileTypes)
    , m_userSettings(userSettings)
    , m_messages(messages)
{
}

void Associations::check(const QString &programPath, const QString &description, const QString &extension, int force)
{
    if (isSet(programPath, extension)) {
        if (force <= 0)
            return;
    } else if (!isWanted(extension)) {
        return;
    }
    registerType(programPath, description, extension);
    m_messages.show(QStringLiteral("The extension %1 has been associated with this application").arg(extension),
                    Messages::Icon::Information);
}

bool Associations::isWanted(const QString &extension)
{
    const QString offer = m_title + QStringLiteral(" has not been set as your default browser for ") + extension +
                          QStringLiteral(" files. Do you want to do so now? ");
    if (m_messages.ask(offer, Messages::Buttons::YesNo) == Messages::Answer::Yes)
        return true;
    const QString again = QStringLiteral("Do you want to check this association every time the application starts? ");
    if (m_messages.ask(again, Messages::Buttons::YesNo) != Messages::Answer::Yes &&
        !m_userSettings.SaveSetting(QStringLiteral("Settings"), QStringLiteral("IgnoreAssoc"), QStringLiteral("1")))
        m_messages.show(tr("The answer cannot be stored."), Messages::Icon::Exclamation);
    return false;
}

bool Associations::isSet(const QString &programPath, const QString &extension) const
{
    const auto has = [this](const QString &path, const QString &text) {
        const QByteArray wanted = m_registry.toCodePage(text);
        const auto stored = ClassesChange::defaultValue(m_registry, path);
        // A command that is too long to be read cannot be compared.
        if (!stored)
            return wanted.size() > qsizetype(clsKey::bufferSize);
        // Another program may have stored it with the zero that ends it.
        return *stored == wanted || *stored == wanted + '\0';
    };
    const Entry command = commandEntry(programPath, extension);
    return has(extension, typeName(extension)) && has(command.path, command.text);
}

void Associations::registerType(const QString &programPath, const QString &description, const QString &extension)
{
    ClassesChange change(m_registry);
    for (const Entry &entry : entriesOf({programPath, description, extension}))
        change.write(entry.path, entry.text);
    // The registry layer does not tell when a value could not be stored.
    if (!isSet(programPath, extension))
        throw RuntimeError(RuntimeError::DeviceError, {}, tr("The registry does not store the association."));
    m_fileTypes.associate(extension, programPath);
    change.keep();
}
