#include "app/Application.h"
#include "app/CommandLineFiles.h"
#include "app/frmMain.h"
#include "app/MessageBoxes.h"
#include "app/WindowPicture.h"
#include "editors/ConfigWizards.h"
#include "editors/ItemEditors.h"
#include "platform/Platform.h"
#include "settings/Associations.h"
#include "settings/Config.h"
#include "settings/ContextHelp.h"
#include "settings/frmAbout.h"
#include "settings/frmOptions.h"
#include "settings/ProductHelp.h"
#include "settings/StoredPreferences.h"
#include "settings/Utilities.h"

#include <QSessionManager>

int main(int argc, char **argv)
{
    const Platform platform = makePlatform(Application::title(), argc, argv);
    MessageBoxes messages;
    ItemEditors editors({messages, *platform.accounts, *platform.fileSystem, *platform.registry, *platform.directory,
                         *platform.scrambler});
    ConfigWizards wizards(messages);
    Config config(*platform.registry);
    StoredPreferences preferences(*platform.registry, config);
    Associations associations(Application::title(), *platform.registry, *platform.fileTypes, *platform.userSettings,
                              messages);
    ProductHelp help(*platform.registry, *platform.helpViewer, messages);
    ContextHelpKey helpKey(help);

    int ownArguments = 1;
    Application application(ownArguments, argv, messages);
    Application::setApplicationVersion(QStringLiteral(ZENTILCONF_VERSION));
    application.installEventFilter(&helpKey);

    frmMain::Services services{*platform.files, *platform.userSettings, messages, editors, preferences};
    services.associations = &associations;
    services.globalSettings = &wizards;
    services.help = &help;
    services.showOptions = [&](QWidget &parent) {
        frmOptions({config, *platform.dataSources, *platform.programs, messages}, &parent).exec();
    };
    services.showAbout = [&](QWidget &parent) {
        frmAbout({*platform.registry, *platform.files, *platform.programs, messages}, &parent).exec();
    };
    frmMain window(services, platform.programPath);
    editors.setParentWindow(&window);
    wizards.setParentWindow(&window);
    PlatformProbe(*platform.registry, platform.versionWord);
    window.LoadAll(filesOfCommandLine(platform.commandLine));
    window.show();
    if (platform.endRequests)
        platform.endRequests->listen([&window] { window.closeOnRequest(); });
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window, [&window](QSessionManager &session) {
        if (!session.allowsInteraction())
            return;
        if (!window.queryEndOfSession())
            session.cancel();
        session.release();
    });
    const QString picture = qEnvironmentVariable("ZENTILCONF_PICTURE");
    if (!picture.isEmpty())
        writePictureWhenShown(window, picture);
    return Application::exec();
}
