#include "app/Application.h"
#include "app/CommandLineFiles.h"
#include "app/frmMain.h"
#include "app/MessageBoxes.h"
#include "app/WindowPicture.h"
#include "config/EditorFactory.h"
#include "platform/Platform.h"
#include "platform/RuntimeError.h"
#include "settings/DocumentPreferences.h"

namespace {

/// There is none yet for any kind.
class NoEditors final : public EditorFactory
{
public:
    [[nodiscard]] bool hasEditor(ItemKind) const override { return false; }
    [[nodiscard]] ItemEditor &newEditor(ItemKind) override { throw RuntimeError(RuntimeError::InvalidCall); }
    [[nodiscard]] ItemEditor &sharedEditor(ItemKind) override { throw RuntimeError(RuntimeError::InvalidCall); }
    void closeEditorsOf(const ItemDocument &) override {}
};

/// What documents start with as long as no settings are stored.
class DefaultPreferences final : public DocumentPreferences
{
public:
    [[nodiscard]] qint16 Edit() const override { return 0; }
    [[nodiscard]] qint16 remote() const override { return 0; }
};

} // namespace

int main(int argc, char **argv)
{
    const Platform platform = makePlatform(Application::title(), argc, argv);
    MessageBoxes messages;
    NoEditors editors;
    const DefaultPreferences preferences;

    int ownArguments = 1;
    Application application(ownArguments, argv, messages);
    Application::setApplicationVersion(QStringLiteral(ZENTILCONF_VERSION));

    frmMain window({*platform.files, *platform.userSettings, messages, editors, preferences}, platform.programPath);
    window.LoadAll(filesOfCommandLine(platform.commandLine));
    window.show();
    const QString picture = qEnvironmentVariable("ZENTILCONF_PICTURE");
    if (!picture.isEmpty())
        writePictureWhenShown(window, picture);
    return Application::exec();
}
