#pragma once

#include "settings/Config.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

/// Reads settings for a form in which the user can set them right: one that cannot be read gives its default, and what
/// kept it from being read is told of all of them together.
class SettingsReader final
{
    Q_DECLARE_TR_FUNCTIONS(SettingsReader)

public:
    explicit SettingsReader(const Config &config);

    [[nodiscard]] qint16 read(qint16 (Config::*property)() const, const Config::Setting &setting);
    [[nodiscard]] qint32 read(qint32 (Config::*property)() const, const Config::Setting &setting);
    [[nodiscard]] QString read(QString (Config::*property)() const, const Config::Setting &setting);

    /// Each error once, with the settings that it concerns. Empty when there was none.
    [[nodiscard]] QString problems() const;

    /// Whether the registry kept one from being read, and not what is stored.
    [[nodiscard]] bool isKeptOut() const { return m_isKeptOut; }

private:
    template<class Value>
    [[nodiscard]] std::optional<Value> attempt(Value (Config::*property)() const, const Config::Setting &setting);

    const Config &m_config;
    /// An error's message, and the properties that raised it.
    std::vector<std::pair<QString, QStringList>> m_problems;
    bool m_isKeptOut = false;
};
