#include "app/Application.h"
#include "app/CommandLineFiles.h"
#include "app/frmMain.h"
#include "app/MessageBoxes.h"
#include "app/WindowPicture.h"
#include "editors/ConfigWizards.h"
#include "editors/ItemEditors.h"
#include "platform/Platform.h"
#include "settings/Config.h"
#include "settings/StoredPreferences.h"

int main(int argc, char **argv)
{
    const Platform platform = makePlatform(Application::title(), argc, argv);
    MessageBoxes messages;
    ItemEditors editors({messages, *platform.accounts, *platform.fileSystem, *platform.registry});
    ConfigWizards wizards(messages);
    Config config(*platform.registry);
    StoredPreferences preferences(*platform.registry, config);

    int ownArguments = 1;
    Application application(ownArguments, argv, messages);
    Application::setApplicationVersion(QStringLiteral(ZENTILCONF_VERSION));

    frmMain window({*platform.files, *platform.userSettings, messages, editors, preferences, nullptr, &wizards},
                   platform.programPath);
    editors.setParentWindow(&window);
    wizards.setParentWindow(&window);
    window.LoadAll(filesOfCommandLine(platform.commandLine));
    window.show();
    const QString picture = qEnvironmentVariable("ZENTILCONF_PICTURE");
    if (!picture.isEmpty())
        writePictureWhenShown(window, picture);
    return Application::exec();
}
