#include "settings/StoredPreferences.h"

#include "platform/Registry.h"
#include "platform/RuntimeError.h"
#include "settings/Config.h"
#include "settings/NumberText.h"

namespace {

qint16 numberWithoutStore(const Config::Setting &setting)
{
    return integerOf(QString(setting.absent));
}

} // namespace

StoredPreferences::StoredPreferences(const Registry &registry, Config &config)
    : m_registry(registry)
    , m_config(config)
{
}

qint16 StoredPreferences::Edit() const
{
    return m_registry.hasStore() ? m_config.Edit() : numberWithoutStore(ConfigSettings::edit);
}

qint16 StoredPreferences::remote() const
{
    return m_registry.hasStore() ? m_config.remote() : numberWithoutStore(ConfigSettings::remote);
}

ListFont StoredPreferences::listFont() const
{
    if (!m_registry.hasStore())
        return {};
    const auto stored = [this](const Config::Setting &setting) {
        return m_config.GetSetting(setting.section, setting.name, QVariant());
    };
    ListFont font;
    const QVariant family = stored(ConfigSettings::fontName);
    if (family.isValid())
        font.family = family.toString();
    const QVariant size = stored(ConfigSettings::fontSize);
    if (size.isValid())
        font.size = integerOf(size.toString());
    return font;
}

void StoredPreferences::storeListFont(const QString &family, qint16 size)
{
    m_config.setFontName(family);
    m_config.setFontSize(size);
    if (!m_config.isStored(ConfigSettings::fontName, family) ||
        !m_config.isStored(ConfigSettings::fontSize, QString::number(size)))
        throw RuntimeError(RuntimeError::DeviceError, {}, tr("The registry does not store the font as it is."));
}
