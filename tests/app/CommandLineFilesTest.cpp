#include "app/CommandLineFiles.h"

#include <gtest/gtest.h>

namespace {

struct RawCase
{
    const char *name;
    QString text;
    QStringList files;
};

void PrintTo(const RawCase &rawCase, std::ostream *stream)
{
    *stream << rawCase.name;
}

class RawCommandLine : public testing::TestWithParam<RawCase>
{
};

TEST_P(RawCommandLine, NamesItsFiles)
{
    CommandLine commandLine;
    commandLine.rawText = GetParam().text;
    // Where there is a raw text it alone counts.
    commandLine.arguments = QStringList{"not", "these"};
    EXPECT_EQ(filesOfCommandLine(commandLine), GetParam().files);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, RawCommandLine, testing::Values(
    RawCase{"Empty",                    "",                                    {}},
    RawCase{"OneWord",                  "a.zcf",                               {"a.zcf"}},
    RawCase{"TwoWords",                 "a.zcf b.zcf",                         {"a.zcf", "b.zcf"}},
    RawCase{"SpacesOnly",               "   ",                                 {}},
    RawCase{"SpacesAround",             "  a.zcf   b.zcf ",                    {"a.zcf", "b.zcf"}},
    RawCase{"QuotedPathWithBlanks",     R"("C:\My Configs\a.zcf")",            {R"(C:\My Configs\a.zcf)"}},
    RawCase{"UnquotedPathWithBlanks",   R"(C:\My Configs\a.zcf)",              {R"(C:\My)", R"(Configs\a.zcf)"}},
    RawCase{"QuoteInTheMiddle",         R"(a.zcf "b c.zcf")",                  {"a.zcf", "\"b", "c.zcf\""}},
    RawCase{"TwoQuotedPathsAreOne",     R"("a.zcf" "b.zcf")",                  {R"(a.zcf" "b.zcf)"}},
    // The last character goes, whatever it is.
    RawCase{"QuoteWithoutItsEnd",       R"("C:\a.zcf)",                        {R"(C:\a.zc)"}},
    RawCase{"QuotedPathAndABlank",      R"("C:\a.zcf" )",                      {R"(C:\a.zcf")"}},
    RawCase{"TwoQuotes",                R"("")",                               {""}},
    RawCase{"OneQuote",                 R"(")",                                {""}},
    RawCase{"ATabIsNoSpace",            "a\tb",                                {"a\tb"}},
    RawCase{"ASpaceBeforeTheQuote",     R"( "a b")",                           {"\"a", "b\""}}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

TEST(CommandLineArguments, AreOnePathEach)
{
    CommandLine commandLine;
    commandLine.arguments = QStringList{"/my configs/a.zcf", "\"quoted\"", "-x", "--help", ""};
    EXPECT_EQ(filesOfCommandLine(commandLine), commandLine.arguments);
}

TEST(CommandLineArguments, NoneNameNoFile)
{
    EXPECT_EQ(filesOfCommandLine({}), QStringList());
}

} // namespace
