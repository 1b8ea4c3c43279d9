#pragma once

#include <QString>

/// Decides, when the program starts, whether to offer to open configuration files with it from now on.
class AssociationCheck
{
public:
    AssociationCheck() = default;
    AssociationCheck(const AssociationCheck &) = delete;
    AssociationCheck &operator=(const AssociationCheck &) = delete;
    virtual ~AssociationCheck() = default;

    /// @param programPath the program's own path
    /// @param description the text that stands for the file type
    /// @param extension with its leading dot
    virtual void check(const QString &programPath, const QString &description, const QString &extension) = 0;
};
