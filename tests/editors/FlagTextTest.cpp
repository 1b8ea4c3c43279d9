#include "editors/FlagText.h"

#include "editors/FlagAlphabets.h"
#include "tests/editors/PlainFlags.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <array>

void PrintTo(const FlagText &parts, std::ostream *stream)
{
    *stream << '[' << parts.letters.toStdString() << ']';
    for (const FlagText::Option &option : parts.options)
        *stream << (option.isChecked ? " [x] " : " [ ] ") << option.text.toStdString();
    *stream << " [" << parts.otherFlags.toStdString() << ']';
}

namespace {

const FlagText::Option unchecked{false, ""};

FlagText::Option checked(const QString &text)
{
    return {true, text};
}

// Reading

struct ReadCase
{
    const char *name;
    const FlagAlphabet &alphabet;
    QString flags;
    FlagText parts;
    /// What is written when nothing is changed.
    QString written;
};

void PrintTo(const ReadCase &readCase, std::ostream *stream)
{
    *stream << readCase.name;
}

class ReadFlags : public testing::TestWithParam<ReadCase>
{
};

TEST_P(ReadFlags, FillsTheControlsAndIsWrittenBack)
{
    const FlagText parts = parseFlags(GetParam().alphabet, GetParam().flags);
    EXPECT_EQ(parts, GetParam().parts);
    EXPECT_EQ(buildFlags(GetParam().alphabet, parts), GetParam().written);
}

// clang-format off
const std::array readCases {
    // Files: letters are listed in the order in which they are read, which has "p" in front of "g".
    ReadCase {"FileAllMacro",                fileFlags, "$(A)",                {"tcmvsniopgz2", {unchecked}, ""}, "$(A)"},
    ReadCase {"FileLogMacro",                fileFlags, "$(LOG)",              {"tcnopgz", {unchecked}, ""}, "$(LOG)"},
    // The set is compared before the option is appended.
    ReadCase {"FileAllLettersAndEvent",      fileFlags, "tcmvsniogpz2,EVT5",   {"tcmvsniopgz2", {checked("5")}, ""}, "$(A),EVT5"},
    ReadCase {"FileMacroInsideOfMore",       fileFlags, "$(A)a",               {"tcamvsniopgz2", {unchecked}, ""}, "tcamvsniogpz2"},
    ReadCase {"FileBothMacros",              fileFlags, "$(A)$(LOG)",          {"tcmvsniopgz2", {unchecked}, "tcnogpz"}, "$(A),tcnogpz"},
    ReadCase {"FileCanonicalOrder",          fileFlags, "ct",                  {"tc", {unchecked}, ""}, "tc"},
    ReadCase {"FileUnknownLetters",          fileFlags, "xyz",                 {"z", {unchecked}, "xy"}, "z,xy"},
    ReadCase {"FileDoubledLetter",           fileFlags, "tct",                 {"tc", {unchecked}, "t"}, "tc,t"},
    ReadCase {"FileEventAlone",              fileFlags, "EVT5",                {"", {checked("5")}, ""}, "EVT5"},
    ReadCase {"FileEventBehindComma",        fileFlags, ",EVT5",               {"", {checked("5")}, ""}, "EVT5"},
    ReadCase {"FileNegativeEvent",           fileFlags, "t,EVT-3",             {"t", {checked("-3")}, ""}, "t,EVT-3"},
    // The name is taken out although it has no number.
    ReadCase {"FileEventWithoutANumber",     fileFlags, "t,EVT",               {"t", {unchecked}, ""}, "t"},
    ReadCase {"FileEventTwice",              fileFlags, "t,EVT3,EVT4",         {"t", {checked("3")}, "EVT4"}, "t,EVT3,EVT4"},
    // A second event gives its digits to the letters.
    ReadCase {"FileSecondEventLosesDigits",  fileFlags, "EVT3,EVT1",           {"1", {checked("3")}, "EVT"}, "1,EVT3,EVT"},
    ReadCase {"FileEventInLowerCase",        fileFlags, "evt5",                {"tv", {unchecked}, "e5"}, "tv,e5"},
    ReadCase {"FileCommasAreDropped",        fileFlags, ",,x,,y,",             {"", {unchecked}, "xy"}, "xy"},
    ReadCase {"FileBlanksStay",              fileFlags, " t x ",               {"t", {unchecked}, "  x "}, "t,  x "},
    ReadCase {"FileMacroOfAnother",          fileFlags, "$(RA)",               {"", {unchecked}, "$(RA)"}, "$(RA)"},
    ReadCase {"FileMacroInLowerCase",        fileFlags, "$(a)",                {"a", {unchecked}, "$()"}, "a,$()"},
    ReadCase {"FileNothing",                 fileFlags, "",                    {"", {unchecked}, ""}, ""},
    // What is left of a word is still set off by a comma.
    ReadCase {"FileOtherWordLosesItsLetters", fileFlags, "Option",             {"tniop", {unchecked}, "O"}, "tniop,O"},

    // The event always comes in front of the group.
    ReadCase {"RegistryGroupAndEvent",       registryFlags, "$(RA),G2,EVT9",   {"ckmopgz2", {checked("9"), checked("2")}, ""}, "$(RA),EVT9,G2"},
    ReadCase {"RegistryAllButMd5",           registryFlags, "ckmogpz2",        {"ckmopgz2", {unchecked, unchecked}, ""}, "$(RA)"},
    ReadCase {"RegistryLogSetHasNoMacro",    registryFlags, "ckogpz",          {"ckopgz", {unchecked, unchecked}, ""}, "ckogpz"},
    ReadCase {"RegistrySmallGIsALetter",     registryFlags, "g,G3",            {"g", {unchecked, checked("3")}, ""}, "g,G3"},
    // Any capital "G" is taken for the option.
    ReadCase {"RegistryGInsideOfAWord",      registryFlags, "$(LOG)",          {"", {unchecked, unchecked}, "$(LO)"}, "$(LO)"},
    ReadCase {"RegistryGWithoutANumber",     registryFlags, "c,G",             {"c", {unchecked, unchecked}, ""}, "c"},
    ReadCase {"RegistryNegativeGroup",       registryFlags, "c,G-1",           {"c", {unchecked, checked("-1")}, ""}, "c,G-1"},

    ReadCase {"UserMacroAlone",              userFlags, "$(UA)",               {"ncCdjhspwlSoebxmugMrRfLO", {unchecked}, ""}, "$(UA)"},
    // With anything behind it the macro is not expanded, and the boxes stay unchecked.
    ReadCase {"UserMacroWithEvent",          userFlags, "$(UA),EVT7",          {"", {checked("7")}, "$(UA)"}, "EVT7,$(UA)"},
    ReadCase {"UserSecondSpelling",          userFlags, "ncCdjhspwlSoebxmuMgRrfLO", {"ncCdjhspwlSoebxmugMrRfLO", {unchecked}, ""}, "$(UA)"},
    ReadCase {"UserAllLetters",              userFlags, "ncCdjhspwlSoaebxmugMrRfLO", {"ncCdjhspwlSoaebxmugMrRfLO", {unchecked}, ""}, "ncCdjhspwlSoaebxmugMrRfLO"},
    ReadCase {"UserOtherOptions",            userFlags, ",G,D",                {"", {unchecked}, "GD"}, "GD"},
    ReadCase {"UserCaseMatters",             userFlags, "CSMRLO",              {"CSMRLO", {unchecked}, ""}, "CSMRLO"},
    // A letter inside of another word is consumed too.
    ReadCase {"UserLetterInsideOfAWord",     userFlags, "Zone",                {"noe", {unchecked}, "Z"}, "noe,Z"},

    ReadCase {"GroupMacro",                  groupFlags, "$(GA)",              {"ncgm", {unchecked}, ""}, "$(GA)"},
    // Unlike the user's, this macro is expanded wherever it stands.
    ReadCase {"GroupMacroWithEvent",         groupFlags, "$(GA),EVT5",         {"ncgm", {checked("5")}, ""}, "$(GA),EVT5"},
    ReadCase {"GroupThreeLetters",           groupFlags, "mcn",                {"ncm", {unchecked}, ""}, "ncm"},
    ReadCase {"GroupCapitalC",               groupFlags, "Cn",                 {"n", {unchecked}, "C"}, "n,C"},

    ReadCase {"UserRight",                   userRightFlags, "c,x,y",          {"c", {}, "xy"}, "c,xy"},
    ReadCase {"UserRightHasNoEvent",         userRightFlags, "EVT5",           {"", {}, "EVT5"}, "EVT5"},

    ReadCase {"AccountPolicyWithEvent",      accountPolicyFlags, "cp,EVT12",   {"cp", {checked("12")}, ""}, "cp,EVT12"},
    ReadCase {"AccountPolicyOtherOrder",     accountPolicyFlags, "p,EVT12,c",  {"cp", {checked("12")}, ""}, "cp,EVT12"},
    // Letters come first here: one that stands in the middle of the option's name makes it whole.
    ReadCase {"AccountPolicyLettersFirst",   accountPolicyFlags, "EVcT12",     {"c", {checked("12")}, ""}, "c,EVT12"},
    // Everywhere else the option is looked for first.
    ReadCase {"GroupOptionsFirst",           groupFlags,         "EVcT12",     {"c", {unchecked}, "EVT12"}, "c,EVT12"},
    ReadCase {"AccountPolicyOtherFlagsHoldALetter", accountPolicyFlags, ",xc", {"c", {unchecked}, "x"}, "c,x"},

    ReadCase {"AuditPolicyNothing",          auditPolicyFlags, "",             {"", {unchecked}, ""}, ""},
    ReadCase {"AuditPolicyEventAndOther",    auditPolicyFlags, "cp,EVT5",      {"", {checked("5")}, "cp"}, "EVT5,cp"},

    ReadCase {"DirectoryServiceAll",         directoryServiceFlags, "12,D64",  {"12", {checked("64")}, ""}, "12,D64"},
    // The number is taken with the option, before the letters "1" and "2" are looked for.
    ReadCase {"DirectoryServiceDigits",      directoryServiceFlags, "D12",     {"", {checked("12")}, ""}, "D12"},
    ReadCase {"DirectoryServiceAlwaysData",  directoryServiceFlags, "1,D-1",   {"1", {checked("-1")}, ""}, "1,D-1"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Cases, ReadFlags, testing::ValuesIn(readCases),
                         [](const auto &tested) { return tested.param.name; });

TEST(ReadOption, OnlyEverChecksItsBox)
{
    const FlagText before = parseFlags(fileFlags, "t,EVT5");
    const FlagText after = parseFlags(fileFlags, "c", before);
    EXPECT_EQ(after, (FlagText{"c", {checked("")}, ""}));
    // The box is checked and its field empty: the option is written without a number.
    EXPECT_EQ(buildFlags(fileFlags, after), "c,EVT");
}

TEST(ReadOption, OfAnotherLineReplacesTheText)
{
    const FlagText before = parseFlags(registryFlags, "c,EVT5,G1");
    EXPECT_EQ(parseFlags(registryFlags, "c,G7", before), (FlagText{"c", {checked(""), checked("7")}, ""}));
}

// Writing

struct WriteCase
{
    const char *name;
    const FlagAlphabet &alphabet;
    FlagText parts;
    QString written;
};

void PrintTo(const WriteCase &writeCase, std::ostream *stream)
{
    *stream << writeCase.name;
}

class WriteFlags : public testing::TestWithParam<WriteCase>
{
};

TEST_P(WriteFlags, GivesTheText)
{
    EXPECT_EQ(buildFlags(GetParam().alphabet, GetParam().parts), GetParam().written);
}

// clang-format off
const std::array writeCases {
    WriteCase {"FileLogSet",               fileFlags, {"tcnogpz", {}, ""}, "$(LOG)"},
    WriteCase {"FileLogSetAndOneMore",     fileFlags, {"tcnogpzm", {}, ""}, "tcmnogpz"},
    WriteCase {"FileEveryBox",             fileFlags, {"tcamvsniogpz12", {}, ""}, "tcamvsniogpz12"},
    WriteCase {"FileEveryBoxButAccess",    fileFlags, {"tcmvsniogpz12", {}, ""}, "tcmvsniogpz12"},
    WriteCase {"RegistryAllButMd5",        registryFlags, {"ckmogpz2", {}, ""}, "$(RA)"},
    WriteCase {"RegistryEveryBox",         registryFlags, {"ckmogpz12", {}, ""}, "ckmogpz12"},
    WriteCase {"UserAllButPasswordAge",    userFlags, {"ncCdjhspwlSoebxmugMrRfLO", {}, ""}, "$(UA)"},
    WriteCase {"UserEveryBox",             userFlags, {"ncCdjhspwlSoaebxmugMrRfLO", {}, ""}, "ncCdjhspwlSoaebxmugMrRfLO"},
    WriteCase {"UserMacroAndEvent",        userFlags, {"ncCdjhspwlSoebxmugMrRfLO", {checked("7")}, ""}, "$(UA),EVT7"},
    WriteCase {"GroupEveryBox",            groupFlags, {"mgcn", {}, ""}, "$(GA)"},
    WriteCase {"AuditPolicyNothing",       auditPolicyFlags, {"", {unchecked}, ""}, ""},
    // The number may be anything; only the blanks around it are not written.
    WriteCase {"EventIsTrimmedOfBlanks",   fileFlags, {"t", {checked("  1 2 ")}, ""}, "t,EVT1 2"},
    WriteCase {"EventIsNotTrimmedOfTabs",  fileFlags, {"t", {checked("\t5")}, ""}, "t,EVT\t5"},
    WriteCase {"EventWithoutNumber",       fileFlags, {"t", {checked(" ")}, ""}, "t,EVT"},
    WriteCase {"UncheckedEvent",           fileFlags, {"t", {{false, "5"}}, ""}, "t"},
    WriteCase {"EventOnly",                fileFlags, {"", {checked("5")}, ""}, "EVT5"},
    WriteCase {"OtherFlagsOnly",           fileFlags, {"", {}, "xy"}, "xy"},
    WriteCase {"OtherFlagsAreNotTrimmed",  fileFlags, {"t", {}, " x "}, "t, x "},
    // One comma is dropped, no more.
    WriteCase {"OtherFlagsBeginWithComma", fileFlags, {"", {}, ",x"}, ",x"},
    WriteCase {"OtherFlagsAreALetter",     fileFlags, {"", {}, "t"}, "t"},
    WriteCase {"EventBeforeOtherFlags",    fileFlags, {"", {checked("5")}, "x"}, "EVT5,x"},
    WriteCase {"DirectoryServiceAll",      directoryServiceFlags, {"21", {checked(" 64 ")}, "x"}, "12,D64,x"},

    // The chooser knows no macro and no comma.
    WriteCase {"ChooserTwoLetters",        chooserFlags, {"tk", {}, ""}, "kt"},
    WriteCase {"ChooserOtherFlags",        chooserFlags, {"kt", {}, "EVT5"}, "ktEVT5"},
    WriteCase {"ChooserComma",             chooserFlags, {"", {}, ",EVT5"}, ",EVT5"},
    WriteCase {"ChooserFileSet",           chooserFlags, {"tcmvsniogpz2", {}, ""}, "tcmvsniogpz2"},
    WriteCase {"ChooserEveryBox",          chooserFlags, {"ktcamvsniogpz12", {}, ""}, "ktcamvsniogpz12"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Cases, WriteFlags, testing::ValuesIn(writeCases),
                         [](const auto &tested) { return tested.param.name; });

// Both, compared with the plain model

struct Pair
{
    const char *name;
    const FlagAlphabet &alphabet;
    const plain::Flags &plain;
};

void PrintTo(const Pair &pair, std::ostream *stream)
{
    *stream << pair.name;
}

// clang-format off
const std::array pairs {
    Pair {"File",             fileFlags,             plain::file},
    Pair {"Registry",         registryFlags,         plain::registry},
    Pair {"User",             userFlags,             plain::user},
    Pair {"Group",            groupFlags,            plain::group},
    Pair {"UserRight",        userRightFlags,        plain::userRight},
    Pair {"AccountPolicy",    accountPolicyFlags,    plain::accountPolicy},
    Pair {"AuditPolicy",      auditPolicyFlags,      plain::auditPolicy},
    Pair {"DirectoryService", directoryServiceFlags, plain::directoryService},
};
// clang-format on

FlagText fromControls(const plain::Controls &controls)
{
    FlagText parts{controls.checked, {}, controls.otherFlags};
    for (qsizetype i = 0; i < controls.optionFields.size(); ++i)
        parts.options.push_back({controls.optionBoxes[size_t(i)], controls.optionFields[i]});
    return parts;
}

class FlagProperty : public testing::TestWithParam<Pair>
{
};

INSTANTIATE_TEST_SUITE_P(Alphabets, FlagProperty, testing::ValuesIn(pairs),
                         [](const auto &tested) { return tested.param.name; });

/// What the grammar looks at, in every neighbourhood.
QStringList anyPieces(const plain::Flags &flags)
{
    QStringList pieces{",",     ",",    "$(A)", "$(LOG)", "$(RA)", "$(UA)", "$(GA)", "EVT", "EVT", ",EVT5", ",G2",
                       ",D-64", "G",    "D",    "E",      "V",     "T",     "$(",    "A)",  "-",   "1",     "2",
                       "7",     "10-2", " ",    "\t",     "x",     "C",     "t",     "c",   "p",   "\u00E9"};
    for (const QChar letter : flags.written)
        pieces << letter;
    return pieces;
}

TEST_P(FlagProperty, RandomTextsAreReadAndWrittenAsThePlainModelDoesIt)
{
    Random random(31);
    const QStringList pieces = anyPieces(GetParam().plain);
    for (int round = 0; round < 5'000; ++round) {
        plain::Controls controls = plain::blankControls(GetParam().plain);
        FlagText parts;
        // Several lines in one editor, one after the other.
        for (int line = 0; line < 3; ++line) {
            const QString text = random.text(pieces, 10);
            plain::parse(GetParam().plain, text, controls);
            parts = parseFlags(GetParam().alphabet, text, parts);
            ASSERT_EQ(parts, fromControls(controls)) << text.toStdString();
            ASSERT_EQ(buildFlags(GetParam().alphabet, parts), plain::build(GetParam().plain, controls))
                << text.toStdString();
        }
    }
}

TEST_P(FlagProperty, RandomControlsAreWrittenAsThePlainModelDoesIt)
{
    Random random(32);
    const QStringList pieces = anyPieces(GetParam().plain);
    for (int round = 0; round < 5'000; ++round) {
        plain::Controls controls = plain::blankControls(GetParam().plain);
        const int share = random.oneOf(QList<int>{0, 10, 50, 90, 100});
        for (const QChar letter : GetParam().plain.written) {
            if (random.chance(share))
                controls.checked += letter;
        }
        for (qsizetype option = 0; option < controls.optionFields.size(); ++option) {
            controls.optionBoxes[size_t(option)] = random.chance(50);
            controls.optionFields[option] = random.text(pieces, 2);
        }
        controls.otherFlags = random.text(pieces, 3);
        ASSERT_EQ(buildFlags(GetParam().alphabet, fromControls(controls)), plain::build(GetParam().plain, controls));
    }
}

TEST_P(FlagProperty, WhatIsWrittenIsReadAndWrittenAgainAsItIs)
{
    // Holds for what people write: each option and macro once, and nothing that letters and options leave behind makes
    // up another of them.
    Random random(33);
    for (int round = 0; round < 5'000; ++round) {
        QStringList pieces{"x", "y", "Z", "?", " "};
        for (const QChar letter : GetParam().plain.written)
            pieces << letter;
        for (const QString &option : GetParam().plain.options) {
            if (random.chance(50))
                pieces << "," + option + random.oneOf(QStringList{"5", "0", "-3", "10-2", "123456"}) + ",";
        }
        if (!GetParam().plain.macros.isEmpty())
            pieces << GetParam().plain.macros[0];
        QString text;
        while (!pieces.isEmpty()) {
            const QString piece = pieces.takeAt(random.number(0, int(pieces.size()) - 1));
            if (random.chance(60))
                text += piece;
        }
        const QString first = buildFlags(GetParam().alphabet, parseFlags(GetParam().alphabet, text));
        const QString second = buildFlags(GetParam().alphabet, parseFlags(GetParam().alphabet, first));
        ASSERT_EQ(second, first) << text.toStdString();
    }
}

} // namespace
