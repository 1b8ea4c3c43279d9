// The help of an installed product: with a stand-in for its viewer, and with the viewer itself.
#include "platform/Platform.h"
#include "settings/ProductHelp.h"
#include "tests/support/FakeMessages.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int patienceMs = 60000;

// Each page of the help file in a colour of its own, as the screen has it: blue, green, red.
const QByteArray startPixel("\x21\x43\xC8", 3);
const QByteArray topicPixel("\x87\xCB\x12", 3);

/// A help file, made by a compiler for such, in the folder of a product that is registered.
class ProductsHelp : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(folder.path()).mkpath("Zentil/Help"));
        write("start.html", "<html><body bgcolor=\"#C84321\"><h1>Start</h1></body></html>\n");
        write("topic.html", "<html><body bgcolor=\"#12CB87\"><h1>Topic</h1></body></html>\n");
        write("zentil.hhp", "[OPTIONS]\nCompiled file=Zentil/Help/zentil.chm\nDefault topic=start.html\nTitle=Zentil\n"
                            "[FILES]\nstart.html\ntopic.html\n"
                            "[ALIAS]\nIDH_START=start.html\nIDH_TOPIC=topic.html\n"
                            "[MAP]\n#define IDH_START 1\n#define IDH_TOPIC 4711\n");
        QProcess compiler;
        compiler.setWorkingDirectory(folder.path());
        compiler.start("chmcmd", {"zentil.hhp"});
        ASSERT_TRUE(compiler.waitForFinished(patienceMs)) << compiler.errorString().toStdString();
        ASSERT_TRUE(QFile::exists(at("Zentil/Help/zentil.chm"))) << compiler.readAll().toStdString();

        Registry &registry = *platform.registry;
        Registry::Handle key = 0;
        ASSERT_EQ(registry.RegCreateKeyExA(Registry::LocalMachine, "SOFTWARE\\Tarnwell Software\\Zentil\\2.0", {}, 0,
                                           Registry::AllAccess, &key, nullptr),
                  Registry::Result::Success);
        ASSERT_EQ(registry.RegSetValueExA(key, "Directory", 1, registry.toCodePage(at("Zentil"))),
                  Registry::Result::Success);
        ASSERT_EQ(registry.RegCloseKey(key), Registry::Result::Success);
    }

    void TearDown() override
    {
        qputenv("PATH", path);
        qunsetenv("DISPLAY");
        messages.verify();
    }

    [[nodiscard]] QString at(const QString &name) const { return folder.filePath(name); }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(at(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    [[nodiscard]] QByteArray bytesOf(const QString &name) const
    {
        QFile file(at(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Puts a program in place of the viewer, which tells its arguments.
    void standIn() const
    {
        const QByteArray told = at("told").toUtf8();
        write("xchm", "#!/bin/sh\nprintf '%s\\n' \"$@\" >'" + told + ".part'\nmv '" + told + ".part' '" + told + "'\n");
        ASSERT_TRUE(QFile::setPermissions(at("xchm"), QFile::ReadOwner | QFile::ExeOwner));
        qputenv("PATH", folder.path().toUtf8() + ':' + path);
    }

    /// The arguments with which the stand-in was started, a line each.
    [[nodiscard]] QByteArray told() const
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(at("told")); }, patienceMs)) << "it was not started";
        return bytesOf("told");
    }

    const QByteArray path = qgetenv("PATH");
    QTemporaryDir folder;
    const Platform platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    FakeMessages messages;
    ProductHelp help{*platform.registry, *platform.helpViewer, messages};
};

TEST_F(ProductsHelp, ViewerIsStartedWithTheFileAndTheContextNumber)
{
    standIn();
    EXPECT_TRUE(help.hasFile());
    help.showTopic(4711);
    EXPECT_EQ(told(), "--contextid=4711\n" + at("Zentil/Help/zentil.chm").toUtf8() + '\n');
}

TEST_F(ProductsHelp, ViewerIsStartedWithTheFileForItsContents)
{
    standIn();
    help.showContents();
    EXPECT_EQ(told(), at("Zentil/Help/zentil.chm").toUtf8() + '\n');
}

TEST_F(ProductsHelp, MissingViewerIsTold)
{
    qputenv("PATH", folder.path().toUtf8());
    messages.expectShow("Cannot start \"xchm\", which shows the help. It is in the package of that name.");
    help.showTopic(1);
}

TEST_F(ProductsHelp, MissingFileIsTold)
{
    ASSERT_TRUE(QFile::remove(at("Zentil/Help/zentil.chm")));
    EXPECT_FALSE(help.hasFile());
    messages.expectShow("Cannot find file " + at("Zentil") + "\\Help\\zentil.chm");
    help.showTopic(1);
}

/// A display without a screen, whose picture is in a file.
class ProductsHelpOnADisplay : public ProductsHelp
{
protected:
    void SetUp() override
    {
        ProductsHelp::SetUp();
        server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1000x700x24", "-nolisten", "tcp", "-noreset",
                              "-fbdir", folder.path()});
        const bool isReady = QTest::qWaitFor(
            [this] { return server.canReadLine() || server.state() == QProcess::NotRunning; }, patienceMs);
        ASSERT_TRUE(isReady && server.canReadLine()) << server.readAllStandardError().toStdString();
        qputenv("DISPLAY", ':' + server.readLine().trimmed());
    }

    void TearDown() override
    {
        // The viewer ends with its display.
        server.terminate();
        EXPECT_TRUE(server.waitForFinished(patienceMs));
        ProductsHelp::TearDown();
    }

    /// Whether a page of that colour comes to be seen.
    [[nodiscard]] bool comesToBeSeen(const QByteArray &pixel) const
    {
        constexpr int manyPixels = 2000;
        return QTest::qWaitFor([&] { return bytesOf("Xvfb_screen0").count(pixel) > manyPixels; }, patienceMs);
    }

    QProcess server;
};

TEST_F(ProductsHelpOnADisplay, ShowsTheTopicOfAContextNumber)
{
    help.showTopic(4711);
    EXPECT_TRUE(comesToBeSeen(topicPixel));
    EXPECT_EQ(bytesOf("Xvfb_screen0").count(startPixel), 0);
}

TEST_F(ProductsHelpOnADisplay, ShowsItsBeginForATopicThatItDoesNotHave)
{
    help.showTopic(0);
    EXPECT_TRUE(comesToBeSeen(startPixel));
}

} // namespace
