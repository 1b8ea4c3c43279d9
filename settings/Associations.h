#pragma once

#include "settings/AssociationCheck.h"

#include <QCoreApplication>
#include <QString>

class FileTypes;
class Messages;
class Registry;
class UserSettings;

/// Registers the program for a file type: below HKEY_CLASSES_ROOT, and with the desktop.
///
/// An association counts as set when the extension's default value is the name of its file type and that type's open
/// command is the one that this class would write. It is looked at with the right to read alone: users may see an
/// association that only an administrator may change.
class Associations final : public AssociationCheck
{
    Q_DECLARE_TR_FUNCTIONS(Associations)

public:
    /// @param title the application's
    Associations(const QString &title, Registry &registry, FileTypes &fileTypes, UserSettings &userSettings,
                 Messages &messages);

    void check(const QString &programPath, const QString &description, const QString &extension, int force) override;

private:
    [[nodiscard]] bool isWanted(const QString &extension);
    [[nodiscard]] bool isSet(const QString &programPath, const QString &extension) const;
    void registerType(const QString &programPath, const QString &description, const QString &extension);

    QString m_title;
    Registry &m_registry;
    FileTypes &m_fileTypes;
    UserSettings &m_userSettings;
    Messages &m_messages;
};
