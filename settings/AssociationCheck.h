#pragma once

#include <QString>

/// Decides whether to offer to open configuration files with this program from now on.
class AssociationCheck
{
public:
    AssociationCheck() = default;
    AssociationCheck(const AssociationCheck &) = delete;
    AssociationCheck &operator=(const AssociationCheck &) = delete;
    virtual ~AssociationCheck() = default;

    /// Asks the user and registers the association when it is not set.
    /// @param programPath the program's own path
    /// @param description the text that stands for the file type
    /// @param extension with its leading dot
    /// @param force greater than 0: an association that is set is registered once more, unasked
    /// @throws RuntimeError when it cannot be registered; then it is what it was before
    virtual void check(const QString &programPath, const QString &description, const QString &extension,
                       int force = 0) = 0;
};
