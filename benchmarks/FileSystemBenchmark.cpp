#include "platform/ByteText.h"
#include "platform/linux/LinuxFileSystem.h"

#include <QDir>
#include <QTemporaryDir>

#include <dirent.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>
#include <vector>

namespace {

/// A drive with a folder of many entries, one in ten of them a folder.
struct BigFolder
{
    explicit BigFolder(int entries)
    {
        QDir(folder.path()).mkpath(QStringLiteral("drives/c:/big"));
        for (int i = 0; i < entries; ++i) {
            const QByteArray name = path() + "/some name of a file " + QByteArray::number(i);
            if (i % 10 == 0)
                QDir().mkdir(decodeBytes(name));
            else
                std::ofstream file(name.toStdString());
        }
    }

    [[nodiscard]] QByteArray path() const { return encodeText(folder.path()) + "/drives/c:/big"; }

    QTemporaryDir folder;
    LinuxFileSystem fileSystem{encodeText(folder.path()) + "/drives"};
};

BigFolder &bigFolder()
{
    static BigFolder folder(50'000);
    return folder;
}

/// What cannot be had for less: the names with their types, as the system gives them.
void ReadDirectoryPlainly(benchmark::State &state)
{
    const QByteArray path = bigFolder().path();
    for (auto _ : state) {
        std::vector<std::string> folders;
        std::vector<std::string> files;
        DIR *directory = opendir(path.constData());
        while (const dirent *entry = readdir(directory))
            (entry->d_type == DT_DIR ? folders : files).emplace_back(entry->d_name);
        closedir(directory);
        benchmark::DoNotOptimize(files);
    }
}
BENCHMARK(ReadDirectoryPlainly)->Unit(benchmark::kMillisecond);

/// The goal is at most 1.5 times what ReadDirectoryPlainly takes.
void ListFolder(benchmark::State &state)
{
    const FileSystem &fileSystem = bigFolder().fileSystem;
    for (auto _ : state)
        benchmark::DoNotOptimize(fileSystem.ListFolder(QStringLiteral("C:\\big")));
}
BENCHMARK(ListFolder)->Unit(benchmark::kMillisecond);

/// A name that is written in another case is looked for in the whole folder.
void FindWhateverTheCase(benchmark::State &state)
{
    const FileSystem &fileSystem = bigFolder().fileSystem;
    for (auto _ : state)
        benchmark::DoNotOptimize(fileSystem.FileExists(QStringLiteral("C:\\BIG\\SOME NAME OF A FILE 7")));
}
BENCHMARK(FindWhateverTheCase)->Unit(benchmark::kMillisecond);

} // namespace
