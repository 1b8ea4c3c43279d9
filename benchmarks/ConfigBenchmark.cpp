#include "config/ConfigFile.h"
#include "config/ConfigLine.h"
#include "config/DocumentShell.h"
#include "config/LineReader.h"
#include "config/RowList.h"
#include "platform/ByteText.h"
#include "platform/Platform.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <array>

namespace {

/// Lines of every kind, no two next to each other alike.
QStringList realisticLines(int count)
{
    QStringList lines;
    lines.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QString number = QString::number(i);
        const std::array shapes{
            QStringLiteral("C:\\Program Files\\Vendor\\Module%1\\library.dll $(A),EVT4101").arg(number),
            QStringLiteral("=\"C:\\Program Files\\Vendor %1\" tcmvsniogpz12").arg(number),
            QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor\\Key%1 $(RA),EVT4201,G2").arg(number),
            QStringLiteral("; why the next lines stand here, number %1").arg(number),
            QStringLiteral("NTUSER:user%1 ncCdjhspw,EVT4301").arg(number),
            QStringLiteral("!!C:\\Windows\\Temp\\%1").arg(number),
            QStringLiteral("LDAP://dc1.example.com/ou=%1,dc=example,dc=com??sub?(objectClass=user) 12,D64").arg(number),
            QStringLiteral("#define MAILSUBJECT \"report %1\"").arg(number),
        };
        lines << shapes[size_t(i) % shapes.size()];
    }
    return lines;
}

QByteArray bytesOf(const QStringList &lines)
{
    RowList rows;
    rows.setRows(lines);
    return encodeText(rows.text());
}

class NoShell final : public DocumentShell
{
public:
    void setMenuVisible(QLatin1String, bool) override {}
    void setToolButtonEnabled(QLatin1String, bool) override {}
    [[nodiscard]] QString statusText() const override { return {}; }
    void setStatusText(const QString &) override {}
    void SaveAs() override {}
};

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
            benchmark::DoNotOptimize(itemKindOf(line));
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
            benchmark::DoNotOptimize(itemKindOf(line));
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
