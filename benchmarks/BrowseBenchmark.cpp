#include "browse/BrowseReg.h"
#include "platform/Messages.h"
#include "platform/Platform.h"
#include "platform/Registry.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

class NoMessages final : public Messages
{
public:
    void show(const QString &, Icon, const QString &) override { std::abort(); }
    [[nodiscard]] Answer ask(const QString &, Buttons, Icon, const QString &) override { std::abort(); }
};

/// A registry in a file of its own, with a key of many sub-keys.
struct BigKey
{
    explicit BigKey(int subKeys)
    {
        const QByteArray above("Software\\Big\\Some name of a key ");
        for (int i = 0; i < subKeys; ++i) {
            Registry::Handle key = 0;
            if (registry().RegCreateKeyExA(Registry::CurrentUser, above + QByteArray::number(i), "", 0,
                                           Registry::AllAccess, &key, nullptr) != Registry::Result::Success)
                std::abort();
            (void)registry().RegCloseKey(key);
        }
    }

    [[nodiscard]] Registry &registry() const { return *platform.registry; }

    static Platform platformWithin(const QTemporaryDir &folder)
    {
        qputenv("ZENTILCONF_REGISTRY", folder.filePath(QStringLiteral("registry.db")).toUtf8());
        return makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    }

    QTemporaryDir folder;
    Platform platform = platformWithin(folder);
};

/// Opening the tree down to a key with that many sub-keys, until the window is painted. The goal for 10,000 is less
/// than 300 ms.
void ExpandKey(benchmark::State &state)
{
    const BigKey big(int(state.range()));
    NoMessages messages;
    for (auto _ : state) {
        state.PauseTiming();
        BrowseReg picker(big.registry(), messages, QString(), false, nullptr);
        picker.SetItem(QStringLiteral("HKCU\\Software"));
        picker.show();
        QApplication::processEvents();
        QTreeWidgetItem *key = picker.findChild<QTreeWidget *>()->currentItem()->child(0);
        state.ResumeTiming();

        key->setExpanded(true);
        QApplication::processEvents();
        if (key->childCount() != state.range())
            state.SkipWithError("not all sub-keys are there");
    }
}
BENCHMARK(ExpandKey)->Arg(100)->Arg(10'000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
