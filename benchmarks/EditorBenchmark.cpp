#include "config/ConfigLine.h"
#include "config/ItemDocument.h"
#include "editors/FileLists.h"
#include "editors/ItemEditorForm.h"
#include "editors/ItemEditors.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"
#include "platform/Platform.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>

namespace {

FolderContent folderOf(int files)
{
    FolderContent content;
    for (int i = 0; i < files; ++i) {
        // As a folder gives them: in no order.
        content.files << QStringLiteral("some name of a file %1.txt").arg(i * 7'919 % files);
    }
    return content;
}

/// Showing a folder of that many files in the lists of the file editor, until they are painted. The goal for 50,000 is
/// less than 300 ms.
void ShowFolder(benchmark::State &state)
{
    const FolderContent content = folderOf(int(state.range()));
    FileLists lists(nullptr);
    lists.show();
    QApplication::processEvents();
    for (auto _ : state) {
        lists.showFolder(QStringLiteral("C:\\dir"), content);
        QApplication::processEvents();
    }
}
BENCHMARK(ShowFolder)->Arg(500)->Arg(50'000)->Unit(benchmark::kMillisecond);

class NoMessages final : public Messages
{
public:
    void show(const QString &, Icon, const QString &) override { std::abort(); }
    [[nodiscard]] Answer ask(const QString &, Buttons, Icon, const QString &) override { std::abort(); }
};

/// A document that takes lines apart, and nothing else.
class Reader final : public ItemDocument
{
public:
    void ParseLine(const QString &line, QString &prefix, QString &object, QString &flags) const override
    {
        parseLine(line, ParseRule::Document, prefix, object, flags);
    }
    [[nodiscard]] QString TryRemoteConnect(const QString &) const override { return {}; }
    void ItemAddFile(const QString &, const QString &, const QString &) override {}
    void ItemChangeFile(const QString &, const QString &, const QString &, qint16) override {}
};

struct EditedLine
{
    ItemKind kind;
    const char *line;
};

// clang-format off
/// One a kind, in the order in which menus show them.
constexpr std::array<EditedLine, 10> editedLines {{
    {ItemKind::File,             "C:\\ $(A),EVT4101"},
    {ItemKind::Registry,         "HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor $(RA),EVT4201,G2"},
    {ItemKind::User,             "NTUSER:user1 ncCdjhspw,EVT4301"},
    {ItemKind::Group,            "NTGROUP:Administrators $(GA),EVT4310"},
    {ItemKind::UserRight,        "USERRIGHT:SeInteractiveLogonRight c"},
    {ItemKind::AccountPolicy,    "ACCOUNTPOLICY cp,EVT4321"},
    {ItemKind::AuditPolicy,      "AUDITPOLICY EVT4322"},
    {ItemKind::DirectoryService, "LDAP://dc1.example.com/ou=1,dc=example,dc=com??sub?(objectClass=user) 12,D64"},
    {ItemKind::Line,             "; why the next lines stand here"},
    {ItemKind::Other,            "\\\\server\\share t"},
}};
// clang-format on

/// Opening the editor of a row, on this machine's drives, until it is painted. The goal is less than 100 ms, which is
/// taken for at once.
void OpenEditor(benchmark::State &state)
{
    const QTemporaryDir folder;
    for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        qputenv(variable, folder.path().toUtf8());
    const Platform platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    NoMessages messages;
    Reader document;
    ItemEditors editors({messages, *platform.accounts, *platform.fileSystem, *platform.registry, *platform.directory,
                         *platform.scrambler});
    const EditedLine &edited = editedLines[size_t(state.range())];
    state.SetLabel(itemKindRow(edited.kind).editor.data());
    const QString line = QString::fromLatin1(edited.line);
    for (auto _ : state) {
        ItemEditor &editor = editors.sharedEditor(edited.kind);
        editor.setWindowToAffect(document);
        editor.setHost(QString());
        editor.setWindowAddFlag(false);
        editor.Show();
        editor.SetItem(line);
        QApplication::processEvents();

        // The next one is made anew, as after closing it.
        state.PauseTiming();
        editors.closeEditorsOf(document);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenEditor)->DenseRange(0, editedLines.size() - 1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
