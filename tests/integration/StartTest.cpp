#include "platform/Platform.h"
#include "settings/Associations.h"
#include "tests/support/FakeMessages.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <fstream>
#include <memory>

namespace {

constexpr int patienceMs = 60000;

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// The program itself, without a display, with the home that the test has.
class RunningProgram final
{
public:
    RunningProgram() = default;
    RunningProgram(const RunningProgram &) = delete;
    RunningProgram &operator=(const RunningProgram &) = delete;
    ~RunningProgram()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    void start(const QStringList &arguments, const QString &folder = {}, const QString &program = PROGRAM)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("ZENTILCONF_PICTURE", picturePath);
        m_process.setProcessEnvironment(environment);
        m_process.setWorkingDirectory(folder);
        m_process.start(program, arguments);
        ASSERT_TRUE(m_process.waitForStarted()) << m_process.errorString().toStdString();
    }

    /// The picture of the main window, once it is there.
    [[nodiscard]] QImage picture()
    {
        const bool isThere = QTest::qWaitFor(
            [this] { return QFile::exists(picturePath) || m_process.state() != QProcess::Running; }, patienceMs);
        EXPECT_TRUE(isThere) << "no picture";
        EXPECT_TRUE(isRunning()) << errors().toStdString();
        return QImage(picturePath);
    }

    /// A line for each document: its caption, a tab, its number of rows.
    [[nodiscard]] QStringList documents() { return picture().text("Documents").split('\n', Qt::SkipEmptyParts); }

    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }

    /// The files that are mapped into it, a line for each part.
    [[nodiscard]] QByteArray maps() const
    {
        return bytesOf(QStringLiteral("/proc/%1/maps").arg(m_process.processId()));
    }

    [[nodiscard]] QByteArray errors()
    {
        m_errors += m_process.readAllStandardError();
        return m_errors;
    }

private:
    QProcess m_process;
    QByteArray m_errors;
    QTemporaryDir m_folder;

public:
    QString picturePath = m_folder.filePath("window.png");
};

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    EXPECT_TRUE(isWritten) << path.toStdString();
}

/// How many rows a text file has, counted in the plainest way.
int rowsOf(const QString &path)
{
    QByteArray bytes = bytesOf(path).replace("\r\n", "\n").replace('\r', '\n');
    while (bytes.endsWith('\n'))
        bytes.chop(1);
    return bytes.isEmpty() ? 0 : int(bytes.count('\n')) + 1;
}

QString documentLine(const QString &path, int rows)
{
    return path + '\t' + QString::number(rows);
}

class Start : public testing::Test
{
protected:
    Start() { store("IgnoreAssoc", "1"); }

    /// A setting of the user who starts the program.
    static void store(const QString &key, const QString &text)
    {
        const Platform platform = makePlatform("ZentilConf", 0, nullptr);
        EXPECT_TRUE(platform.userSettings->SaveSetting("Settings", key, text));
    }

    [[nodiscard]] QString at(const QString &name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    RunningProgram program;
};

TEST_F(Start, OpensTheSamples)
{
    const QString server = SAMPLES_FOLDER "/server.zcf";
    const QString workstation = SAMPLES_FOLDER "/workstation.zcf";
    const QByteArray before = bytesOf(server);
    program.start({server, workstation});
    EXPECT_EQ(program.documents(),
              (QStringList{documentLine(server, rowsOf(server)), documentLine(workstation, rowsOf(workstation))}));
    EXPECT_GT(rowsOf(server), 100);
    EXPECT_EQ(bytesOf(server), before);
}

TEST_F(Start, WithoutAFileShowsAnEmptyWindowAndGoesOn)
{
    program.start({});
    EXPECT_EQ(program.documents(), QStringList());
    EXPECT_TRUE(program.isRunning());
}

// The services of seldom used dialogs: what they need of the system is large.
TEST_F(Start, LoadsNoLibraryOfADialog)
{
    program.start({SAMPLES_FOLDER "/server.zcf"});
    ASSERT_EQ(program.documents().size(), 1);
    const QByteArray maps = program.maps();
    EXPECT_TRUE(maps.contains("libQt6Widgets"));
    for (const char *library : {"libldap", "libgnutls", "libodbc", "zentilconf-services"})
        EXPECT_FALSE(maps.contains(library)) << library;
}

TEST_F(Start, ThePictureShowsTheWindow)
{
    write(at("a.zcf"), "C:\\Windows ABC\r\n");
    program.start({at("a.zcf")});
    const QImage picture = program.picture();
    EXPECT_GE(picture.width(), 400);
    EXPECT_GE(picture.height(), 400);
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            colours << picture.pixel(x, y);
    }
    EXPECT_GT(colours.size(), 20);
}

TEST_F(Start, APictureThatCannotBeWrittenIsReportedAndTheProgramGoesOn)
{
    program.picturePath = at("nowhere/window.png");
    program.start({});
    QByteArray errors;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return (errors = program.errors()).contains("The picture cannot be written to"); }, patienceMs));
    EXPECT_TRUE(errors.contains(program.picturePath.toUtf8())) << errors.toStdString();
    EXPECT_TRUE(program.isRunning());
}

TEST_F(Start, AnArgumentThatLooksLikeAnOptionIsAPath)
{
    // Each of these would mean something to the toolkit or to other programs.
    const QStringList names{"--help", "-platform", "-style", "-", "--", "-x.zcf"};
    QStringList expected;
    for (const QString &name : names) {
        write(at(name), "a\r\nb\r\n");
        expected << documentLine(name, 2);
    }
    program.start(names, folder.path());
    EXPECT_EQ(program.documents(), expected);
}

TEST_F(Start, APathMayHoldBlanksQuotesAndOtherCharacters)
{
    const QStringList names{"my config.zcf", "\"quoted\".zcf", QStringLiteral("Übergröße 日本.zcf"), "[*].zcf",
                            "a&b.zcf"};
    QStringList expected;
    for (const QString &name : names) {
        write(at(name), "a\r\n");
        expected << documentLine(at(name), 1);
    }
    QStringList paths;
    for (const QString &name : names)
        paths << at(name);
    program.start(paths);
    EXPECT_EQ(program.documents(), expected);
}

TEST_F(Start, APathMayHoldBytesThatAreNotUtf8)
{
    const std::string path = folder.path().toStdString() + "/a\xE4.zcf";
    std::ofstream(path) << "a\nb\nc\n";
    // The arguments of a process are given as text; the shell makes the byte.
    const QString script = QStringLiteral("exec \"$0\" \"$1$(printf '/a\\344.zcf')\"");
    program.start({"-c", script, PROGRAM, folder.path()}, {}, "/bin/sh");
    const QStringList documents = program.documents();
    ASSERT_EQ(documents.size(), 1);
    EXPECT_TRUE(documents.first().endsWith(".zcf\t3")) << documents.first().toStdString();
    EXPECT_TRUE(std::filesystem::remove(path));
}

TEST_F(Start, AFileOfArbitraryBytesOpens)
{
    QByteArray bytes("\xEF\xBB\xBF");
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    write(at("all.zcf"), bytes + QByteArray(1 << 20, '\xFF'));
    program.start({at("all.zcf")});
    EXPECT_EQ(program.documents(), QStringList{documentLine(at("all.zcf"), rowsOf(at("all.zcf")))});
}

TEST_F(Start, TheMostRowsOpen)
{
    write(at("most.zcf"), QByteArray("C:\\Windows\\System32\\drivers\\etc ABC\r\n").repeated(32767));
    program.start({at("most.zcf")});
    EXPECT_EQ(program.documents(), QStringList{documentLine(at("most.zcf"), 32767)});
}

TEST_F(Start, TheStoredPlaceIsTaken)
{
    store("MainWidth", "9000");
    store("MainHeight", "7500");
    program.start({});
    EXPECT_EQ(program.picture().size(), QSize(600, 500));
}

TEST_F(Start, AProgramThatOpensTheFilesAlreadyAsksNothing)
{
    store("IgnoreAssoc", "0");
    const Platform platform = makePlatform("ZentilConf", 0, nullptr);
    FakeMessages messages;
    messages.expectAsk("ZentilConf has not been set as your default browser for .zcf files. Do you want to do so now? ",
                       Messages::Buttons::YesNo, Messages::Answer::Yes);
    messages.expectShow("The extension .zcf has been associated with this application", Messages::Icon::Information);
    Associations("ZentilConf", *platform.registry, *platform.fileTypes, *platform.userSettings, messages)
        .check(PROGRAM, "Zentil Config", ".zcf", 0);
    // With a question there would be no window until it is answered.
    program.start({});
    EXPECT_FALSE(program.picture().isNull());
}

TEST_F(Start, OpeningAFileMakesNoRegistry)
{
    program.start({SAMPLES_FOLDER "/server.zcf"});
    EXPECT_EQ(program.documents().size(), 1);
    EXPECT_EQ(QDir(qEnvironmentVariable("XDG_DATA_HOME")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList());
}

TEST_F(Start, SeveralProgramsRunAtOnceOnOneSettingsFile)
{
    const QString server = SAMPLES_FOLDER "/server.zcf";
    constexpr int writers = 3;
    constexpr int times = 40;
    std::vector<std::unique_ptr<QProcess>> storing;
    for (int i = 0; i < writers; ++i) {
        storing.push_back(std::make_unique<QProcess>());
        storing.back()->start(SETTINGS_USER, {"Writer" + QString::number(i), QString::number(times)});
        ASSERT_TRUE(storing.back()->waitForStarted());
    }
    RunningProgram second;
    RunningProgram third;
    program.start({server});
    second.start({server});
    third.start({server});
    for (RunningProgram *each : {&program, &second, &third})
        EXPECT_EQ(each->documents(), QStringList{documentLine(server, rowsOf(server))});

    const Platform platform = makePlatform("ZentilConf", 0, nullptr);
    for (int i = 0; i < writers; ++i) {
        QProcess &process = *storing[size_t(i)];
        EXPECT_TRUE(process.state() == QProcess::NotRunning || process.waitForFinished(patienceMs));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        // None has lost what another one stored in between.
        EXPECT_EQ(platform.userSettings->GetSetting("Test", "Writer" + QString::number(i)), QString::number(times));
    }
    EXPECT_EQ(platform.userSettings->GetSetting("Settings", "MainWidth"), "4500");
}

} // namespace
