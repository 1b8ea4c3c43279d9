#pragma once

#include "app/frmMain.h"
#include "config/ConfigForm.h"
#include "config/ConfigListView.h"
#include "platform/Platform.h"
#include "settings/AssociationCheck.h"
#include "tests/support/FakeEditors.h"
#include "tests/support/FakeFileAccess.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakePreferences.h"
#include "tests/support/FakeUserSettings.h"
#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class QMimeData;

/// Remembers what was asked of it.
class FakeAssociationCheck final : public AssociationCheck
{
public:
    void check(const QString &programPath, const QString &description, const QString &extension, int) override
    {
        calls << QStringList{programPath, description, extension};
        if (onCheck)
            onCheck();
    }

    QList<QStringList> calls;
    std::function<void()> onCheck;
};

/// The main window over fake files, settings, messages and editors; a derived fixture may put the system's own files or
/// the real editors in.
class Program : public testing::Test
{
protected:
    Program() = default;
    ~Program() override
    {
        // A document that is still open belongs to the window and goes with it, unasked.
        window.reset();
    }

    /// Starts the program as main() does.
    void start(const QStringList &paths = {})
    {
        window = std::make_unique<frmMain>(frmMain::Services{*files, settings, messages, *editorFactory, preferences,
                                                             optional.associations, optional.globalSettings,
                                                             optional.help, optional.showOptions, optional.showAbout},
                                           programPath);
        window->LoadAll(paths);
        showActive(*window);
        settle();
    }

    /// A changed document is about to be closed.
    void expectQuestion(Messages::Answer answer)
    {
        messages.expectAsk("The configuration has changed. Save changes before closing?",
                           Messages::Buttons::YesNoCancel, answer);
    }

    /// Runs the program's loop, lets steps happen in it, and returns whether the program has ended then.
    [[nodiscard]] bool endsAfter(const std::function<void()> &steps)
    {
        constexpr int stillRunning = 1;
        QObject run;
        QMetaObject::invokeMethod(
            &run,
            [&] {
                steps();
                // A window that stands means that nobody ended the loop.
                if (window->isVisible())
                    QCoreApplication::exit(stillRunning);
            },
            Qt::QueuedConnection);
        return QApplication::exec() != stillRunning;
    }

    /// Lets everything happen that is waiting to, the end of closed windows as well.
    static void settle();

    /// Drops what the data holds onto the place of a widget, by way of the window as the window system does.
    /// @return what the program that it comes from is told of it; IgnoreAction when it was not taken
    Qt::DropAction drop(const QMimeData &data, const QWidget &onto, Qt::DropActions possible = Qt::CopyAction);

    /// Drops files onto the main window.
    Qt::DropAction drop(const QStringList &paths);

    [[nodiscard]] bool endsAfterClosing()
    {
        return endsAfter([this] { window->close(); });
    }

    [[nodiscard]] ConfigForm &document(size_t index) const { return *window->documents().at(index); }

    [[nodiscard]] QStringList captions() const
    {
        QStringList result;
        for (const ConfigForm *each : window->documents())
            result << each->caption();
        return result;
    }

    [[nodiscard]] QString activeCaption() const
    {
        return window->activeDocument() ? window->activeDocument()->caption() : QString();
    }

    [[nodiscard]] static ConfigListView &list(const ConfigForm &form)
    {
        return *control<ConfigListView>(form, "ConfigList");
    }

    /// Makes a document the active one as a click on it would.
    void activate(ConfigForm &form)
    {
        list(form).setFocus();
        settle();
    }

    [[nodiscard]] QString status() const;
    [[nodiscard]] bool isMenuVisible(const char *entry) const;

    FakeFileAccess fakeFiles;
    FileAccess *files = &fakeFiles;
    FakeUserSettings settings;
    FakeAssociationCheck associations;
    FakeMessages messages;
    FakeEditors editors;
    EditorFactory *editorFactory = &editors;
    FakePreferences preferences;
    /// What the program may be without. A test gives what it needs before it starts the program.
    struct
    {
        AssociationCheck *associations = nullptr;
        GlobalSettingsEditor *globalSettings = nullptr;
        Help *help = nullptr;
        std::function<void(QWidget &)> showOptions;
        std::function<void(QWidget &)> showAbout;
    } optional{&associations, nullptr, nullptr, {}, {}};
    const UseMessages use{messages};
    ProgramPathForm programPath{QStringLiteral("/"), QString()};
    std::unique_ptr<frmMain> window;
};

/// The same over the system's own files, in a temporary folder.
class ProgramOnFiles : public Program
{
protected:
    ProgramOnFiles() { files = platform.files.get(); }

    /// The path of a file in the folder.
    [[nodiscard]] QString at(const QString &name) const { return folder.filePath(name); }

    QString write(const QString &name, const QByteArray &bytes) const;
    [[nodiscard]] static QByteArray bytesOf(const QString &path);

    Platform platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    QTemporaryDir folder;
};
