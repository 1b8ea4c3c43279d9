#pragma once

#include "settings/DocumentPreferences.h"

#include <QCoreApplication>

class Config;
class Registry;

/// The settings of documents as this machine has them. A document that is opened asks for some; that makes no registry
/// where there is none yet, and takes no time for it then.
class StoredPreferences final : public DocumentPreferences
{
    Q_DECLARE_TR_FUNCTIONS(StoredPreferences)

public:
    /// @param registry the one that config reads
    StoredPreferences(const Registry &registry, Config &config);

    [[nodiscard]] qint16 Edit() const override;
    [[nodiscard]] qint16 remote() const override;
    /// FontName and FontSize, each only where it is stored: their defaults are a font that not every machine has.
    [[nodiscard]] ListFont listFont() const override;
    void storeListFont(const QString &family, qint16 size) override;

private:
    const Registry &m_registry;
    Config &m_config;
};
