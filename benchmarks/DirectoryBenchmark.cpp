#include "browse/BrowseLDAP.h"
#include "browse/EntryTree.h"
#include "platform/LdapDirectory.h"
#include "platform/Messages.h"
#include "platform/PasswordScrambler.h"
#include "tests/integration/DirectoryServer.h"

#include <QApplication>
#include <QProcess>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

constexpr int entryCount = 10'000;

class NoMessages final : public Messages
{
public:
    void show(const QString &, Icon, const QString &) override { std::abort(); }
    [[nodiscard]] Answer ask(const QString &, Buttons, Icon, const QString &) override { std::abort(); }
};

class NoScrambler final : public PasswordScrambler
{
public:
    [[nodiscard]] std::optional<QString> scramble(const QString &) override { return std::nullopt; }
    [[nodiscard]] std::optional<QString> unscramble(const QString &) override { return std::nullopt; }
};

/// A server with one large container, the same for both.
DirectoryServer &server()
{
    static DirectoryServer started;
    static const bool isStarted = [] {
        started.addMany(entryCount);
        started.start();
        return true;
    }();
    (void)isStarted;
    return started;
}

/// Expanding the container in the browser's tree, until the window is painted. The goal is at most twice the time that
/// ReadWithLdapsearch takes in the same run.
void ExpandContainer(benchmark::State &state)
{
    NoMessages messages;
    NoScrambler scrambler;
    const QString url = server().path("dc=example,dc=com");
    for (auto _ : state) {
        state.PauseTiming();
        LdapDirectory directory;
        BrowseLDAP picker(directory, scrambler, messages, nullptr);
        picker.SetItem(url);
        picker.show();
        auto *tree = picker.findChild<EntryTree *>();
        while (tree->topLevelItemCount() == 0 || EntryTree::hasPlaceholder(*tree->topLevelItem(0)))
            QApplication::processEvents();
        QTreeWidgetItem *container = EntryTree::childNamed(*tree->topLevelItem(0), "ou=many");
        state.ResumeTiming();

        container->setExpanded(true);
        QApplication::processEvents();
        if (container->childCount() != entryCount)
            state.SkipWithError("not all entries are there");
    }
}
BENCHMARK(ExpandContainer)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The same entries, without attributes and in pages of the same size, by OpenLDAP's own program.
void ReadWithLdapsearch(benchmark::State &state)
{
    const QStringList arguments{"-x",
                                "-LLL",
                                "-o",
                                "ldif-wrap=no",
                                "-H",
                                QStringLiteral("ldap://127.0.0.1:%1").arg(server().port()),
                                "-b",
                                "ou=many,dc=example,dc=com",
                                "-s",
                                "one",
                                "-E",
                                "pr=1000/noprompt",
                                "(objectClass=*)",
                                "1.1"};
    for (auto _ : state) {
        QProcess program;
        program.start("ldapsearch", arguments);
        if (!program.waitForFinished(-1) || program.readAllStandardOutput().count("dn: ") != entryCount)
            state.SkipWithError("ldapsearch did not read all entries");
    }
}
BENCHMARK(ReadWithLdapsearch)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
