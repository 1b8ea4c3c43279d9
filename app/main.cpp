#include "app/Application.h"
#include "app/CommandLineFiles.h"
#include "app/frmMain.h"
#include "app/MessageBoxes.h"
#include "app/WindowPicture.h"
#include "platform/Platform.h"
#include "settings/AssociationCheck.h"

namespace {

/// Offers nothing: this build does not register file types.
class NoAssociationCheck final : public AssociationCheck
{
public:
    void check(const QString &, const QString &, const QString &) override {}
};

} // namespace

int main(int argc, char **argv)
{
    const Platform platform = makePlatform(Application::title(), argc, argv);
    MessageBoxes messages;
    NoAssociationCheck associations;

    int ownArguments = 1;
    Application application(ownArguments, argv, messages);
    Application::setApplicationVersion(QStringLiteral(ZENTILCONF_VERSION));

    frmMain window({*platform.files, *platform.userSettings, messages, associations}, platform.programPath);
    window.LoadAll(filesOfCommandLine(platform.commandLine));
    window.show();
    const QString picture = qEnvironmentVariable("ZENTILCONF_PICTURE");
    if (!picture.isEmpty())
        writePictureWhenShown(window, picture);
    return Application::exec();
}
