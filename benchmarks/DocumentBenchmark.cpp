#include "benchmarks/Surroundings.h"
#include "config/ConfigForm.h"
#include "config/ConfigListView.h"
#include "config/EditorFactory.h"
#include "platform/FileAccess.h"
#include "platform/Messages.h"
#include "settings/DocumentPreferences.h"

#include <QApplication>
#include <QPrinter>
#include <QScrollBar>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

/// One file, in memory.
class OneFile final : public FileAccess
{
public:
    [[nodiscard]] bool fileExists(const QString &) const override { return true; }
    void readFile(const QString &, const TakeBytes &take) override { take(bytes); }
    void writeFile(const QString &, QByteArrayView) override {}

    QByteArray bytes;
};

class NoMessages final : public Messages
{
public:
    void show(const QString &, Icon, const QString &) override {}
    [[nodiscard]] Answer ask(const QString &, Buttons, Icon, const QString &) override { return Answer::No; }
};

class NoEditors final : public EditorFactory
{
public:
    [[nodiscard]] bool hasEditor(ItemKind) const override { return false; }
    [[nodiscard]] ItemEditor &newEditor(ItemKind) override { throw RuntimeError(RuntimeError::InvalidCall); }
    [[nodiscard]] ItemEditor &sharedEditor(ItemKind) override { throw RuntimeError(RuntimeError::InvalidCall); }
    void closeEditorsOf(const ItemDocument &) override {}
};

class NoPreferences final : public DocumentPreferences
{
public:
    [[nodiscard]] qint16 Edit() const override { return 0; }
    [[nodiscard]] qint16 remote() const override { return 0; }
    [[nodiscard]] ListFont listFont() const override { return {}; }
    void storeListFont(const QString &, qint16) override {}
};

/// A document, with its window, of a file of that many lines.
class Document
{
public:
    explicit Document(int lines)
    {
        files.bytes = realisticLines(lines).join(QStringLiteral("\r\n")).toUtf8();
        form.setAttribute(Qt::WA_DeleteOnClose, false);
        form.file().SetInfo(QStringLiteral("a.zcf"));
        form.resize(800, 600);
    }

    void open()
    {
        qint16 result = 0;
        form.Form_Load_Data(0, result);
        form.show();
        QCoreApplication::processEvents();
    }

    [[nodiscard]] ConfigListView &list() const { return *form.findChild<ConfigListView *>(); }

    OneFile files;
    NoMessages messages;
    NoShell shell;
    NoEditors editors;
    NoPreferences preferences;
    ConfigForm form{{files, messages, shell, editors, preferences}};
};

/// An open document on the screen, with all its rows selected but the first and the last.
class OpenDocument : public Document
{
public:
    explicit OpenDocument(int lines)
        : Document(lines)
    {
        open();
        RowSelection selection;
        for (int row = 1; row < lines - 1; ++row)
            selection.rows.push_back(row);
        selection.current = 1;
        list().setRowSelection(selection);
        QCoreApplication::processEvents();
    }
};

/// From the file's bytes in memory until the rows are painted. Reading it from the disk is in the other benchmarks.
void OpenWindow(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto document = std::make_unique<Document>(int(state.range()));
        state.ResumeTiming();
        document->open();
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range());
}
BENCHMARK(OpenWindow)->RangeMultiplier(4)->Range(500, 32'000)->Unit(benchmark::kMillisecond)->Complexity();

/// A page on, from the first row to the last and again. The goal is less than the 16 ms that a screen shows a picture,
/// however many rows there are.
void ScrollPage(benchmark::State &state)
{
    Document document(int(state.range()));
    document.open();
    QScrollBar &bar = *document.list().verticalScrollBar();
    for (auto _ : state) {
        bar.triggerAction(bar.value() == bar.maximum() ? QScrollBar::SliderToMinimum : QScrollBar::SliderPageStepAdd);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(ScrollPage)->RangeMultiplier(8)->Range(500, 32'000)->Unit(benchmark::kMillisecond);

void SelectAll(benchmark::State &state)
{
    Document document(int(state.range()));
    document.open();
    for (auto _ : state) {
        document.list().selectAll();
        QCoreApplication::processEvents();
        state.PauseTiming();
        document.list().clearSelection();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range());
}
BENCHMARK(SelectAll)->RangeMultiplier(4)->Range(500, 32'000)->Unit(benchmark::kMillisecond)->Complexity();

/// All rows, into a PDF file.
void Print(benchmark::State &state)
{
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("a.pdf")));
    Document document(int(state.range()));
    document.shell.onPrinter = [&printer]() -> QPrinter & { return printer; };
    document.open();
    for (auto _ : state)
        document.form.PrintOut();
    state.SetComplexityN(state.range());
}
BENCHMARK(Print)->RangeMultiplier(4)->Range(500, 32'000)->Unit(benchmark::kMillisecond)->Complexity();

/// A command and what follows on the screen; then undone, which is not measured.
void measure(benchmark::State &state, void (ConfigForm::*command)())
{
    OpenDocument document(int(state.range()));
    for (auto _ : state) {
        (document.form.*command)();
        QCoreApplication::processEvents();
        state.PauseTiming();
        (document.form.*command)();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range());
}

void ToggleComments(benchmark::State &state)
{
    measure(state, &ConfigForm::mnuItemTextComment_Click);
}
BENCHMARK(ToggleComments)->RangeMultiplier(4)->Range(500, 32'000)->Unit(benchmark::kMillisecond)->Complexity();

void removeAndUndo(benchmark::State &state, bool isUndoMeasured)
{
    OpenDocument document(int(state.range()));
    ConfigListView &list = document.list();
    const RowSelection all = list.rowSelection();
    const auto step = [&](void (ConfigForm::*command)(), bool isMeasured) {
        if (!isMeasured)
            state.PauseTiming();
        (document.form.*command)();
        QCoreApplication::processEvents();
        if (!isMeasured)
            state.ResumeTiming();
    };
    for (auto _ : state) {
        step(&ConfigForm::Remove_Other, !isUndoMeasured);
        step(&ConfigForm::mnuEditUndo_Click, isUndoMeasured);
        state.PauseTiming();
        list.setRowSelection(all);
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range());
}

void RemoveRows(benchmark::State &state)
{
    removeAndUndo(state, false);
}
BENCHMARK(RemoveRows)->RangeMultiplier(4)->Range(500, 32'000)->Unit(benchmark::kMillisecond)->Complexity();

void UndoRemoval(benchmark::State &state)
{
    removeAndUndo(state, true);
}
BENCHMARK(UndoRemoval)->RangeMultiplier(4)->Range(500, 32'000)->Unit(benchmark::kMillisecond)->Complexity();

/// One up, and the way back down unmeasured.
void MoveRowsUp(benchmark::State &state)
{
    OpenDocument document(int(state.range()));
    for (auto _ : state) {
        document.form.moveUp();
        QCoreApplication::processEvents();
        state.PauseTiming();
        document.form.moveDown();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range());
}
BENCHMARK(MoveRowsUp)->RangeMultiplier(4)->Range(500, 32'000)->Unit(benchmark::kMillisecond)->Complexity();

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
