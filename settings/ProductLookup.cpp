#include "settings/ProductLookup.h"

#include "registry/clsKey.h"
#include "registry/RegistryConstants.h"

#include <algorithm>

using RegistryConstants::allAccess;

namespace {

QString productText(Registry &registry, const QString &name)
{
    clsKey product(registry);
    product.OpenFull(QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\Tarnwell Software\\Zentil"), {}, 0, allAccess);
    if (!product.KeyOK())
        return {};
    std::vector<clsKey> &releases = product.SubKeys();
    const auto latest = std::max_element(releases.begin(), releases.end(), [](const clsKey &one, const clsKey &other) {
        return one.Name() < other.Name();
    });
    if (latest == releases.end())
        return {};
    latest->OpenKey(allAccess);
    if (!latest->KeyOK())
        return {};
    const std::optional<clsValue> value = latest->Value(name);
    return value ? value->DataString().section(QChar(u'\0'), 0, 0) : QString();
}

} // namespace

QString ProductValue(Registry &registry, const QString &name)
{
    // The value's text has a character for each byte, also where the code page has several bytes for a character.
    return registry.fromCodePage(productText(registry, name).toLatin1());
}

QString InstallationDirectory(Registry &registry)
{
    return ProductValue(registry, QStringLiteral("Directory"));
}

qint16 ReleaseNumber(Registry &registry)
{
    const QString stored = productText(registry, QStringLiteral("relver"));
    return stored.isEmpty() ? qint16(0) : static_cast<qint16>(stored.front().unicode());
}
