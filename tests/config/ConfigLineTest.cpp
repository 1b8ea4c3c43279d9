#include "config/ConfigLine.h"

#include "config/ConfigParse.h"
#include "platform/RuntimeError.h"
#include "tests/config/PlainGrammar.h"
#include "tests/support/Errors.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>

namespace plain {

void PrintTo(const Parts &parts, std::ostream *stream)
{
    *stream << '[' << parts.prefix.toStdString() << "] [" << parts.object.toStdString() << "] ["
            << parts.flags.toStdString() << ']';
}

} // namespace plain

namespace {

using plain::Parts;

Parts partsOf(const QString &line)
{
    Parts parts;
    parseLine(line, ParseRule::Document, parts.prefix, parts.object, parts.flags);
    return parts;
}

Parts olderPartsOf(const QString &line)
{
    Parts parts;
    ConfigParse().ParseLine(line, parts.prefix, parts.object, parts.flags);
    return parts;
}

struct LineCase
{
    const char *name;
    QString line;
    Parts parts;
    ItemKind kind;
};

void PrintTo(const LineCase &lineCase, std::ostream *stream)
{
    *stream << lineCase.name;
}

class ConfigLine : public testing::TestWithParam<LineCase>
{
};

TEST_P(ConfigLine, IsTakenApart)
{
    EXPECT_EQ(partsOf(GetParam().line), GetParam().parts);
}

TEST_P(ConfigLine, HasItsKind)
{
    EXPECT_EQ(GetItemType(GetParam().line), GetParam().kind);
}

// clang-format off
const std::array lineCases {
    LineCase {"PathAndFlags", R"(C:\Windows\System32 RSA)", {"", R"(C:\Windows\System32)", "RSA"}, ItemKind::File},
    // Without the quote test the split would fall inside the path, and flags would not be empty.
    LineCase {"QuotedPathWithoutFlags", R"("C:\Program Files\App")", {"", R"(C:\Program Files\App)", ""}, ItemKind::File},
    LineCase {"DoubleEqualsInFrontOfAKey", R"(==HKEY_LOCAL_MACHINE\Software\X A)", {"==", R"(HKEY_LOCAL_MACHINE\Software\X)", "A"}, ItemKind::Registry},
    LineCase {"TrailingBackslashIsDropped", R"(!!C:\temp\)", {"!!", R"(C:\temp)", ""}, ItemKind::File},
    LineCase {"DriveRootKeepsItsBackslash", R"(C:\)", {"", R"(C:\)", ""}, ItemKind::File},
    LineCase {"User", "NTUSER:Administrator ABC", {"", "NTUSER:Administrator", "ABC"}, ItemKind::User},
    LineCase {"AccountPolicyInLowerCase", "accountpolicy", {"", "accountpolicy", ""}, ItemKind::AccountPolicy},
    // The flags are cut off before the keyword is compared as a whole.
    LineCase {"AccountPolicyWithFlags", "ACCOUNTPOLICY X", {"", "ACCOUNTPOLICY", "X"}, ItemKind::AccountPolicy},
    LineCase {"CommentWithAPath", R"(; C:\old\path R)", {"", R"(; C:\old\path)", "R"}, ItemKind::Line},
    LineCase {"Define", "#define ZENTILPRIORITY 5", {"", "#define ZENTILPRIORITY", "5"}, ItemKind::Line},
    LineCase {"UncPath", R"(\\server\share\f R)", {"", R"(\\server\share\f)", "R"}, ItemKind::Other},
    LineCase {"PathThatBeginsWithAMacro", R"($(A)\x)", {"", R"($(A)\x)", ""}, ItemKind::Other},
    LineCase {"TabBetweenObjectAndFlags", "C:\\x\tR", {"", R"(C:\x)", "R"}, ItemKind::File},
    LineCase {"EscapeStaysAsTyped", R"(C:\caf\u0x00E9 R)", {"", R"(C:\caf\u0x00E9)", "R"}, ItemKind::File},

    LineCase {"SingleEqualsAndQuotedObject", R"(="C:\Program Files\x" tcm)", {"=", R"(C:\Program Files\x)", "tcm"}, ItemKind::File},
    LineCase {"QuotesAroundPrefixAndObject", R"("=C:\Program Files\x" tcm)", {"=", R"(C:\Program Files\x)", "tcm"}, ItemKind::File},
    LineCase {"QuotesInsideQuotes", R"("="C:\Program Files\x"" tcm)", {"=", R"(C:\Program Files\x)", "tcm"}, ItemKind::File},
    // The exclamation mark is looked for after the equals sign, and overwrites it.
    LineCase {"EqualsThenExclamation", R"(=!C:\x t)", {"!", R"(C:\x)", "t"}, ItemKind::File},
    LineCase {"DoubleEqualsThenDoubleExclamation", R"(==!!C:\x t)", {"!!", R"(C:\x)", "t"}, ItemKind::File},
    LineCase {"ExclamationThenEquals", R"(!=C:\x t)", {"!", R"(=C:\x)", "t"}, ItemKind::Other},
    LineCase {"ThreeEquals", R"(===C:\x t)", {"==", R"(=C:\x)", "t"}, ItemKind::Other},
    LineCase {"PrefixAlone", "!!", {"!!", "", ""}, ItemKind::Line},
    LineCase {"Empty", "", {"", "", ""}, ItemKind::Line},
    LineCase {"SpacesOnly", "   ", {"", "", ""}, ItemKind::Line},
    LineCase {"TabOnly", "\t", {"", "", ""}, ItemKind::Line},
    LineCase {"SpacesAround", "  C:\\x   R  ", {"", R"(C:\x)", "R"}, ItemKind::File},
    // Of several words only the last is flags; the object keeps the others.
    LineCase {"BareWords", "one two three", {"", "one two", "three"}, ItemKind::Line},
    LineCase {"NoBreakSpaceIsNoSpace", "C:\\a\u00A0b R", {"", "C:\\a\u00A0b", "R"}, ItemKind::File},
    LineCase {"QuoteOpenedOnly", R"("C:\x)", {"", R"(C:\)", ""}, ItemKind::File},
    LineCase {"QuoteClosedOnly", R"(C:\x")", {"", R"(C:\x")", ""}, ItemKind::File},
    LineCase {"EmptyQuotes", R"("")", {"", "", ""}, ItemKind::Line},
    LineCase {"QuoteBehindTheFlags", R"(C:\x R")", {"", R"(C:\x R")", ""}, ItemKind::File},
    LineCase {"BackslashBehindAColonInsideAPath", R"(C:\x:\ R)", {"", R"(C:\x:\)", "R"}, ItemKind::File},
    LineCase {"TwoTrailingBackslashes", R"(C:\x\\ R)", {"", R"(C:\x\)", "R"}, ItemKind::File},
    LineCase {"LoneBackslash", "\\", {"", "", ""}, ItemKind::Other},

    LineCase {"KeyInLowerCase", R"(hklm\software A)", {"", R"(hklm\software)", "A"}, ItemKind::Registry},
    LineCase {"KeyWithoutBackslash", "HKLM A", {"", "HKLM", "A"}, ItemKind::Line},
    LineCase {"QuotedKey", R"("HKLM\Soft Ware" A)", {"", R"(HKLM\Soft Ware)", "A"}, ItemKind::Registry},
    // The tag is looked at before the path.
    LineCase {"UserThatLooksLikeAPath", R"(NTUSER:C:\x)", {"", R"(NTUSER:C:\x)", ""}, ItemKind::User},
    LineCase {"GroupInMixedCase", "NtGroup:Users ncgm", {"", "NtGroup:Users", "ncgm"}, ItemKind::Group},
    LineCase {"DirectoryQuery", "LDAP://dc1/dc=example,dc=com??sub?(cn=*) 12,D64", {"", "LDAP://dc1/dc=example,dc=com??sub?(cn=*)", "12,D64"}, ItemKind::DirectoryService},
    LineCase {"UserRight", "!USERRIGHT:* c", {"!", "USERRIGHT:*", "c"}, ItemKind::UserRight},
    LineCase {"AuditPolicy", "AuditPolicy ,EVT5", {"", "AuditPolicy", ",EVT5"}, ItemKind::AuditPolicy},
    LineCase {"AuditPolicyWithMoreBehind", "AUDITPOLICYX", {"", "AUDITPOLICYX", ""}, ItemKind::Line},
    LineCase {"PrefixInFrontOfATag", "==NTUSER:x n", {"==", "NTUSER:x", "n"}, ItemKind::User},
    LineCase {"QuoteBehindAPrefix", R"(!"NTUSER:a b" n)", {"!", "NTUSER:a b", "n"}, ItemKind::User},
    LineCase {"DriveWithoutBackslash", "C: R", {"", "C:", "R"}, ItemKind::Line},
    LineCase {"ForwardSlashes", "C:/x R", {"", "C:/x", "R"}, ItemKind::Line},
    LineCase {"CommentSignInsideTheFirstSegment", R"(a;\x R)", {"", R"(a;\x)", "R"}, ItemKind::Other},
    LineCase {"CommentedPath", R"(;C:\x R)", {"", R"(;C:\x)", "R"}, ItemKind::Line},
    LineCase {"CommentedPathWithASpace", R"(;"C:\a b" R)", {"", R"(;"C:\a b")", "R"}, ItemKind::Line},
    LineCase {"HashInFrontOfABackslash", R"(#\x)", {"", R"(#\x)", ""}, ItemKind::Line},
    LineCase {"ColonAsSecondCharacterWins", R"(;:\x)", {"", R"(;:\x)", ""}, ItemKind::File},
    // A tab is a space for taking a line apart, but not for deciding its kind.
    LineCase {"TabInFrontOfAKeyword", "ACCOUNTPOLICY\tc", {"", "ACCOUNTPOLICY", "c"}, ItemKind::Line},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Lines, ConfigLine, testing::ValuesIn(lineCases),
                         [](const auto &test) { return test.param.name; });

TEST(ParseLine, PrefixIsWrittenOnlyWhenThereIsOne)
{
    QString prefix = "kept";
    QString object;
    QString flags = "old";
    parseLine(R"(C:\x)", ParseRule::Document, prefix, object, flags);
    EXPECT_EQ(prefix, "kept");
    EXPECT_EQ(flags, "");
}

TEST(ParseLine, LoneDoubleQuoteRaisesInvalidCall)
{
    for (const char *line : {"\"", " \" ", "\t\"", "\" R", "=\"", "!!\"", "=!\" R", "\"=\"\""}) {
        QString prefix;
        QString object;
        QString flags;
        EXPECT_EQ(errorNumberOf([&] { parseLine(line, ParseRule::Document, prefix, object, flags); }), 5) << line;
    }
}

TEST(OlderParser, SplitsAtTheLastSpaceEvenInsideQuotes)
{
    EXPECT_EQ(olderPartsOf(R"("C:\Program Files\App")"), (Parts{"", R"(C:\Progra)", R"(Files\App")"}));
}

TEST(OlderParser, CutsFlagsThatAreLongerThanTheObject)
{
    EXPECT_EQ(olderPartsOf("a ABC"), (Parts{"", "a", "A"}));
    EXPECT_EQ(olderPartsOf("abcd ABC"), (Parts{"", "abcd", "ABC"}));
}

TEST(OlderParser, AgreesWithTheDocumentOtherwise)
{
    EXPECT_EQ(olderPartsOf(R"(==HKLM\Software\X A)"), partsOf(R"(==HKLM\Software\X A)"));
    EXPECT_EQ(olderPartsOf(R"(=!C:\temp\)"), partsOf(R"(=!C:\temp\)"));
}

TEST(EscapeObject, WritesEverythingButPrintableAsciiAsItsCode)
{
    EXPECT_EQ(EscapeObject("a\tb"), R"(a\u0x0009b)");
    EXPECT_EQ(EscapeObject("caf\u00E9"), R"(caf\u0x00E9)");
    EXPECT_EQ(EscapeObject(QString(QChar(127))), R"(\u0x007F)");
    EXPECT_EQ(EscapeObject(" ~"), " ~");
    // Beyond 16 bits: both halves.
    EXPECT_EQ(EscapeObject(QString::fromUcs4(U"\U0001F480")), R"(\u0xD83D\u0xDC80)");
}

TEST(EscapeObject, KeepsTheCharacterOfCodeZero)
{
    const QString text = QString("a") + QChar(0) + "b";
    EXPECT_EQ(EscapeObject(text), text);
}

TEST(EscapeObject, WritesACarriedByteAsTheCharacterItIsShownAs)
{
    EXPECT_EQ(EscapeObject(QString(QChar(0xDCE9))), R"(\u0x00E9)");
    EXPECT_EQ(EscapeObject(QString(QChar(0xDC80))), R"(\u0x20AC)");
}

struct AssemblyCase
{
    const char *name;
    QString object;
    QString prefix;
    QString flags;
    FlagsSpace space;
    QString line;
};

void PrintTo(const AssemblyCase &assemblyCase, std::ostream *stream)
{
    *stream << assemblyCase.name;
}

class Assembly : public testing::TestWithParam<AssemblyCase>
{
};

TEST_P(Assembly, GivesTheLine)
{
    const AssemblyCase &given = GetParam();
    EXPECT_EQ(assembleLine(given.object, given.prefix, given.flags, given.space), given.line);
}

// clang-format off
const std::array assemblyCases {
    AssemblyCase {"PrefixAndBlankInTheObject", R"(C:\Program Files\App)", "=", "RSA", FlagsSpace::Yes, R"(="C:\Program Files\App" RSA)"},
    AssemblyCase {"NoFlags", R"(HKEY_LOCAL_MACHINE\Software)", "", "", FlagsSpace::Yes, R"(HKEY_LOCAL_MACHINE\Software)"},
    // What is added while no row is selected has always been written so.
    AssemblyCase {"NoSpaceWithoutASelectedRow", R"(C:\x)", "", "R", FlagsSpace::No, R"(C:\xR)"},
    AssemblyCase {"AlreadyQuoted", R"("C:\a b")", "!", "R", FlagsSpace::Yes, R"(!"C:\a b" R)"},
    AssemblyCase {"QuoteAtTheFrontOnly", R"("C:\a b)", "", "", FlagsSpace::Yes, R"("C:\a b)"},
    // A tab is escaped before blanks are looked for, so it needs no quotes.
    AssemblyCase {"TabNeedsNoQuotes", "C:\\a\tb", "", "R", FlagsSpace::Yes, R"(C:\a\u0x0009b R)"},
    AssemblyCase {"FlagsAreTakenAsTheyAre", "AUDITPOLICY", "", ",EVT5 \u00E9", FlagsSpace::Yes, "AUDITPOLICY ,EVT5 \u00E9"},
    AssemblyCase {"WholeLineInThePrefix", "", "; a comment, \u00E9 and all", "", FlagsSpace::Yes, "; a comment, \u00E9 and all"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Lines, Assembly, testing::ValuesIn(assemblyCases),
                         [](const auto &test) { return test.param.name; });

/// Pieces from which random lines are made: what the grammar looks at, in every neighbourhood.
const QStringList pieces{
    " ",
    " ",
    "\t",
    "\"",
    "\"",
    "=",
    "!",
    "\\",
    "\\",
    ":",
    ";",
    "#",
    "C:",
    "c:\\",
    "D:\\x",
    "HK",
    "hklm\\",
    "HKEY_",
    "NTUSER:",
    "ntgroup:",
    "LDAP:",
    "UserRight:",
    "ACCOUNTPOLICY",
    "AuditPolicy",
    "#define ",
    "$(A)",
    ",EVT5",
    "R",
    "tcm",
    "\u00E9",
    "\u20AC",
    QString(QChar(0)),
    QString(QChar(0xDC80)),
    QString(QChar(0xDCE9)),
    "\u00A0",
    "a",
};

template<class Function>
std::optional<Parts> outcome(const Function &parse)
{
    try {
        return parse();
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), 5);
    } catch (const plain::NegativeLength &) {
    }
    return std::nullopt;
}

TEST(LineProperty, RandomLinesAreReadAsThePlainModelReadsThem)
{
    Random random(11);
    for (int round = 0; round < 60'000; ++round) {
        const QString line = random.text(pieces, 12);
        ASSERT_EQ(outcome([&] { return partsOf(line); }), outcome([&] { return plain::parseAsDocument(line); }))
            << line.toStdString();
        ASSERT_EQ(outcome([&] { return olderPartsOf(line); }), outcome([&] { return plain::parseAsOlderParser(line); }))
            << line.toStdString();
        ASSERT_EQ(int(GetItemType(line)), plain::kindOf(line)) << line.toStdString();
    }
}

TEST(LineProperty, RandomPartsAreJoinedAsThePlainModelJoinsThem)
{
    Random random(12);
    QStringList withoutCarriers = pieces;
    withoutCarriers.removeIf([](const QString &piece) { return piece[0].isSurrogate(); });
    for (int round = 0; round < 20'000; ++round) {
        const QString object = random.text(withoutCarriers, 6);
        const QString prefix = random.oneOf(QStringList{"", "=", "==", "!", "!!"});
        const QString flags = random.text(withoutCarriers, 3);
        const bool hasSpace = random.chance(50);
        ASSERT_EQ(assembleLine(object, prefix, flags, hasSpace ? FlagsSpace::Yes : FlagsSpace::No),
                  plain::assemble(object, prefix, flags, hasSpace));
    }
}

TEST(LineProperty, AnAssembledLineIsTakenApartIntoItsParts)
{
    // Holds for what an editor hands over: an object without quotes, signs or a backslash at its ends, and flags
    // without blanks.
    Random random(13);
    const QStringList objectPieces{"C:\\", "dir", "a b", "\u00E9", "x.txt", "\\y", "(1)", "\\sub dir\\z"};
    const QStringList flagPieces{"t", "c", "R", "$(A)", ",EVT5", ",G2"};
    for (int round = 0; round < 20'000; ++round) {
        const QString object = "C:\\" + random.text(objectPieces, 4) + "e";
        const QString prefix = random.oneOf(QStringList{"", "=", "==", "!", "!!"});
        const QString flags = random.text(flagPieces, 3);
        const Parts parts = partsOf(assembleLine(object, prefix, flags, FlagsSpace::Yes));
        ASSERT_EQ(parts, (Parts{prefix, EscapeObject(object), flags}));
        // What is shown again is stored again without a change.
        ASSERT_EQ(assembleLine(parts.object, prefix, flags, FlagsSpace::Yes),
                  assembleLine(object, prefix, flags, FlagsSpace::Yes));
    }
}

} // namespace
