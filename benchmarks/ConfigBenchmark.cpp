#include "benchmarks/Surroundings.h"
#include "config/ConfigFile.h"
#include "config/ConfigLine.h"
#include "config/LineReader.h"
#include "config/RowList.h"
#include "platform/ByteText.h"
#include "platform/Platform.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

QByteArray bytesOf(const QStringList &lines)
{
    RowList rows;
    rows.setRows(lines);
    return encodeText(rows.text());
}

/// A file of its own in a temporary folder, and the program's way to it.
struct FileOnDisk
{
    FileOnDisk() { file.SetInfo(folder.filePath(QStringLiteral("a.zcf"))); }

    static Platform platformWithin(const QTemporaryDir &folder)
    {
        qputenv("XDG_STATE_HOME", folder.path().toUtf8());
        return makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    }

    QTemporaryDir folder;
    Platform platform = platformWithin(folder);
    NoShell shell;
    ConfigFile file{*platform.files, shell};
};

void TakeLinesApart(benchmark::State &state)
{
    const QStringList lines = realisticLines(int(state.range()));
    for (auto _ : state) {
        for (const QString &line : lines) {
            QString prefix;
            QString object;
            QString flags;
            parseLine(line, ParseRule::Document, prefix, object, flags);
            benchmark::DoNotOptimize(object);
            benchmark::DoNotOptimize(GetItemType(line));
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range());
}
BENCHMARK(TakeLinesApart)->Arg(1'000)->Arg(32'000)->Unit(benchmark::kMillisecond);

void SplitAndClassify(benchmark::State &state)
{
    const QByteArray bytes = bytesOf(realisticLines(int(state.range())));
    for (auto _ : state) {
        LineReader reader;
        reader.take(bytes);
        for (const QString &line : reader.lines())
            benchmark::DoNotOptimize(GetItemType(line));
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(SplitAndClassify)->Arg(1'000)->Arg(32'000)->Unit(benchmark::kMillisecond);

void OpenFile(benchmark::State &state)
{
    FileOnDisk disk;
    qint16 success = 0;
    disk.file.SetFile(QString::fromUtf8(bytesOf(realisticLines(int(state.range())))), 0, success);
    for (auto _ : state) {
        RowList rows;
        rows.setRows(disk.file.GetFile());
        benchmark::DoNotOptimize(rows.rowCount());
    }
}
BENCHMARK(OpenFile)->Arg(1'000)->Arg(32'000)->Unit(benchmark::kMillisecond);

/// Saving, down to the disk; with its complexity, which is to be linear in the number of rows.
void SaveFile(benchmark::State &state)
{
    FileOnDisk disk;
    RowList rows;
    rows.setRows(realisticLines(int(state.range())));
    for (auto _ : state) {
        qint16 success = 0;
        disk.file.SetFile(rows.text(), rows.rowCount(), success);
    }
    state.SetComplexityN(state.range());
}
BENCHMARK(SaveFile)->RangeMultiplier(4)->Range(500, 32'000)->Unit(benchmark::kMillisecond)->Complexity();

/// The part of saving that does not wait for the disk.
void JoinAndEncode(benchmark::State &state)
{
    RowList rows;
    rows.setRows(realisticLines(int(state.range())));
    for (auto _ : state)
        benchmark::DoNotOptimize(encodeText(rows.text()));
    state.SetComplexityN(state.range());
}
BENCHMARK(JoinAndEncode)->RangeMultiplier(4)->Range(500, 32'000)->Unit(benchmark::kMillisecond)->Complexity();

} // namespace
