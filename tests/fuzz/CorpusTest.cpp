#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

// A target that finds something ends the process, and the test with it.
TEST(Corpus, EveryFileIsTakenWithoutAFinding)
{
    const QDir corpus(QStringLiteral(CORPUS_FOLDER));
    const QStringList names = corpus.entryList(QDir::Files);
    ASSERT_GE(names.size(), 10);
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        EXPECT_EQ(LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                                         std::size_t(bytes.size())),
                  0);
    }
}

} // namespace
