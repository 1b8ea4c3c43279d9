#include "editors/FileLists.h"
#include "platform/FileSystem.h"

#include <QApplication>

#include <benchmark/benchmark.h>

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

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
