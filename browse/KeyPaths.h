#pragma once

#include <QHash>
#include <QString>

/// The whole path of a key, with the full name of its hive, as the user sees it: with the short one.
[[nodiscard]] QString shownKeyPath(const QString &path);

/// The whole path that a user's text means. Blanks around it and a "\" at its end do not count.
[[nodiscard]] QString meantKeyPath(const QString &text);

/// The paths of the keys in a tree by the keys of its nodes. Case does not count in a node's key, so that a key is
/// found as the registry finds it.
class KeyPaths final
{
public:
    /// Enters a path, without blanks around it and without a "\" at its end. A path that is there already, also in
    /// another case, stays as it is. @return the key of its node
    QString enter(const QString &path);

    /// The path of a node; empty for a key that was not entered.
    [[nodiscard]] QString path(const QString &nodeKey) const { return m_paths.value(nodeKey); }

    /// The key that the node of a path has.
    [[nodiscard]] static QString nodeKey(const QString &path);

private:
    QHash<QString, QString> m_paths;
};
