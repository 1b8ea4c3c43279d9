// The association over the system's own registry, or the store that stands for it.
#include "platform/Platform.h"
#include "registry/clsKey.h"
#include "registry/RegistryConstants.h"
#include "settings/Associations.h"
#include "tests/support/FakeFileTypes.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeUserSettings.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

class AssociationService : public testing::Test
{
protected:
    void TearDown() override
    {
        clsKey root(*platform.registry);
        root.OpenFull("HKEY_CLASSES_ROOT", "", 0, RegistryConstants::allAccess);
        for (const char *below : {"\\shell\\open\\command", "\\shell\\open", "\\shell", "\\DefaultIcon", ""})
            root.DeleteSubKey(type + below);
        root.DeleteSubKey(extension);
        EXPECT_FALSE(hasKey(type));
        EXPECT_FALSE(hasKey(extension));
    }

    [[nodiscard]] bool hasKey(const QString &path)
    {
        clsKey key(*platform.registry);
        key.OpenFull("HKEY_CLASSES_ROOT\\" + path, "", 0, RegistryConstants::allAccess);
        return key.KeyOK();
    }

    void check()
    {
        Associations associations("ZentilConf", *platform.registry, fileTypes, settings, messages);
        associations.check(QStringLiteral(u"/opt/M\u00FCller & Co/zentilconf"), "Zentil Config", extension, 0);
        messages.verify();
    }

    const Platform platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    const QString extension = QStringLiteral(".zcf%1").arg(QCoreApplication::applicationPid());
    const QString type = extension.sliced(1) + "file";
    FakeFileTypes fileTypes;
    FakeUserSettings settings;
    FakeMessages messages;
};

TEST_F(AssociationService, IsRegisteredOnceAndForAll)
{
    messages.expectAsk("ZentilConf has not been set as your default browser for " + extension +
                           " files. Do you want to do so now? ",
                       Messages::Buttons::YesNo, Messages::Answer::Yes);
    messages.expectShow("The extension " + extension + " has been associated with this application",
                        Messages::Icon::Information);
    check();
    EXPECT_TRUE(hasKey(type + "\\shell\\open\\command"));
    check();
}

TEST_F(AssociationService, IsUndoneWhenTheDesktopCannotBeTold)
{
    fileTypes.error = RuntimeError(RuntimeError::DiskFull);
    messages.expectAsk("ZentilConf has not been set as your default browser for " + extension +
                           " files. Do you want to do so now? ",
                       Messages::Buttons::YesNo, Messages::Answer::Yes);
    EXPECT_THROW(check(), RuntimeError);
    EXPECT_FALSE(hasKey(extension));
    EXPECT_FALSE(hasKey(type));
}

} // namespace
