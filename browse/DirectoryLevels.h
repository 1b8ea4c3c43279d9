#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Names of entries are those of RFC 4514, see platform/DistinguishedName.h.

/// The names from a context down to an entry, the context's own not among them: "ou=a", "cn=b" for "cn=b,ou=a,dc=x"
/// below "dc=x". Nothing when the entry is not in the context. Names are compared by what they mean, and without regard
/// to case.
[[nodiscard]] std::optional<QStringList> levelsBelow(const QString &distinguishedName, const QString &context);

/// Whether two relative names mean the same.
[[nodiscard]] bool isSameName(const QString &one, const QString &other);

/// Where a tree may begin that holds an entry: the ends of its name, from the top level down to the name itself. The
/// bare "DC=COM" is not among them; no server holds that.
[[nodiscard]] QStringList possibleContexts(const QString &distinguishedName);
