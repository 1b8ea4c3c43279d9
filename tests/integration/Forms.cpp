#include "tests/integration/Forms.h"

#include "browse/BrowseDrives.h"
#include "browse/BrowseLDAP.h"
#include "browse/BrowseReg.h"
#include "browse/BrowseUsers.h"
#include "editors/ConfigDialogFlags.h"
#include "editors/ConfigDialogPrefix.h"
#include "settings/frmAbout.h"
#include "settings/frmOptions.h"

#include <algorithm>

Forms::Forms()
{
    fakeFiles.content["/a.zcf"] = "; a comment\r\nC:\\Windows\\System32 $(A)\r\n#define PRIORITY low\r\n";
    fileSystem.addDrive("C:\\");
    fileSystem.addFile("C:\\Program Files\\Zentil\\zentil.exe");
    accounts.users = QStringList{"root", "daemon"};
    accounts.localGroups = QStringList{"Administrators"};
    accounts.globalGroups = QStringList{"Domain Users"};
    dataSources.names = {"events"};
    config.setODBCdsn("events");
    open();
}

template<ItemKind kind>
QWidget *Forms::openEditor()
{
    document(0).AddNew(itemKindRow(kind).displayName);
    return activated(&editor());
}

QWidget *Forms::openFlags()
{
    return activated(new ConfigDialogFlags(window.get()));
}

QWidget *Forms::openPrefix()
{
    return activated(new ConfigDialogPrefix(*new QLineEdit(window.get()), window.get()));
}

QWidget *Forms::openWizard()
{
    trigger(*window, "mnuItemWizard");
    return activated(openWizards().value(0));
}

QWidget *Forms::openUsers()
{
    auto *picker = new BrowseUsers(accounts, window.get());
    picker->ShowUsers({}, false);
    return activated(picker);
}

QWidget *Forms::openKeys()
{
    return activated(new BrowseReg(registry, messages, {}, false, window.get()));
}

QWidget *Forms::openDirectory()
{
    return activated(new BrowseLDAP(directory, scrambler, messages, window.get()));
}

QWidget *Forms::openDrives()
{
    return activated(new BrowseDrives(fileSystem, {}, window.get()));
}

QWidget *Forms::openOptions()
{
    return activated(new frmOptions({config, dataSources, programs, messages}, window.get()));
}

QWidget *Forms::openAbout()
{
    return activated(new frmAbout({registry, fakeFiles, programs, messages}, window.get()));
}

void Forms::withEach(const std::function<void(const Row &row, QWidget &form)> &check)
{
    for (const Row &row : all()) {
        SCOPED_TRACE(row.name);
        const QPointer<QWidget> form = (this->*row.open)();
        check(row, *form);
        if (form && form->inherits("QDialog"))
            form->close();
        settle();
    }
}

qsizetype Forms::storingCalls() const
{
    return std::count_if(registry.calls.begin(), registry.calls.end(),
                         [](const QByteArray &call) { return call.startsWith("RegSetValueExA"); });
}

std::span<const Forms::Row> Forms::all()
{
    // clang-format off
    static constexpr std::array<Row, 21> rows {{
        {"frmMain",            &Forms::openMainWindow,                        "ConfigList"},
        {"ConfigForm",         &Forms::openDocument,                          "ConfigList"},
        {"ConfigDialogNew",    &Forms::openEditor<ItemKind::File>,            "ObjectName",      "OKButton", "CancelButton"},
        {"ConfigDialogReg",    &Forms::openEditor<ItemKind::Registry>,        "ObjectName",      "OKButton", "CancelButton"},
        {"ConfigDialogUser",   &Forms::openEditor<ItemKind::User>,            "ObjectName",      "OKButton", "CancelButton"},
        {"ConfigDialogGroup",  &Forms::openEditor<ItemKind::Group>,           "ObjectName",      "OKButton", "CancelButton"},
        {"ConfigDialogRight",  &Forms::openEditor<ItemKind::UserRight>,       "AllRights",       "OKButton", "CancelButton"},
        {"ConfigDialogPolicy", &Forms::openEditor<ItemKind::AccountPolicy>,   "flag_c",          "OKButton", "CancelButton"},
        {"ConfigDialogAudit",  &Forms::openEditor<ItemKind::AuditPolicy>,     "flag_EVT",        "OKButton", "CancelButton"},
        {"ConfigDialogLDAP",   &Forms::openEditor<ItemKind::DirectoryService>, "PreBox",         "OKButton", "CancelButton"},
        {"ConfigDialogOther",  &Forms::openEditor<ItemKind::Other>,           "ObjectName",      "OKButton", "CancelButton"},
        {"ConfigDialogMisc",   &Forms::openEditor<ItemKind::Line>,            "Item",            "OKButton", "CancelButton"},
        {"ConfigDialogFlags",  &Forms::openFlags,                             "flag_k",          "OKButton", "CancelButton"},
        {"ConfigDialogPrefix", &Forms::openPrefix,                            "OptionEq_0",      "OKButton", "CancelButton"},
        {"ConfigWizardInfo",   &Forms::openWizard,                            "def_DETECTIONDB", "cmdOK",    "cmdCancel"},
        {"BrowseUsers",        &Forms::openUsers,                             "List",            "OKButton", "CancelButton"},
        {"BrowseReg",          &Forms::openKeys,                              "KeyList",         "OKButton", "CancelButton"},
        {"BrowseLDAP",         &Forms::openDirectory,                         "Host",            "OKButton", "CancelButton"},
        {"BrowseDrives",       &Forms::openDrives,                            "DriveList",       "OKButton", "CancelButton"},
        {"frmOptions",         &Forms::openOptions,                           "AutoStartFlag",   "cmdOK",    "cmdCancel"},
        {"frmAbout",           &Forms::openAbout,                             "cmdOK",           "cmdOK"},
    }};
    // clang-format on
    return rows;
}

QWidget *Forms::activated(QWidget *form)
{
    showActive(*form);
    return form;
}
