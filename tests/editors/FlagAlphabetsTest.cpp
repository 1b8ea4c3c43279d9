#include "editors/FlagAlphabets.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <array>

namespace {

QStringList lettersOf(const FlagAlphabet &alphabet)
{
    QStringList rows;
    for (const FlagLetter &each : alphabet.letters)
        rows << QString(QLatin1Char(each.letter)) + '|' + each.control + '|' + each.caption + '|' + each.toolTip;
    return rows;
}

QStringList restOf(const FlagAlphabet &alphabet)
{
    QStringList rows{QString("read ") + alphabet.readOrder};
    for (const FlagMacro &macro : alphabet.macros) {
        const bool isAlone = macro.expanded == FlagMacro::Expanded::Alone;
        rows << QString(isAlone ? "alone " : "anywhere ") + macro.text + " is " + macro.letters;
    }
    for (const FlagOption &option : alphabet.options) {
        rows << QString(option.name) + '|' + option.control + '|' + option.field + '|' + option.caption + '|' +
                    option.fieldToolTip + '|' + (option.isSetWithLetters ? "set" : "left");
    }
    for (const FlagFrame &frame : alphabet.frames)
        rows << QString(frame.control) + '|' + frame.caption + '|' + frame.letters;
    for (const FlagQuickSet &set : alphabet.quickSets)
        rows << QString(set.control) + '|' + set.caption + '|' + set.toolTip + '|' + set.letters;
    return rows;
}

struct AlphabetCase
{
    const char *name;
    const FlagAlphabet &alphabet;
    QStringList letters;
    QStringList rest;
};

void PrintTo(const AlphabetCase &alphabetCase, std::ostream *stream)
{
    *stream << alphabetCase.name;
}

class Alphabet : public testing::TestWithParam<AlphabetCase>
{
};

const QString volumeSerial = "v|flag_v|Volume serial|Each drive has a serial number associated with it. This would "
                             "detect a repartitioning or drive change.";

// clang-format off
const std::array alphabetCases {
    AlphabetCase {"File", fileFlags, {
        "t|flag_t|Attributes|Read-only, hidden, etc.",
        "c|flag_c|Creation time|",
        "a|flag_a|Access time|",
        "m|flag_m|Modification time|",
        volumeSerial,
        "s|flag_s|Size of file|",
        "n|flag_n|Number of links|",
        "i|flag_i|File index number|",
        "o|flag_o|Owner sid|",
        "g|flag_g|Group acl|Permissions for groups",
        "p|flag_p|Standard acl|Permissions for users",
        "z|flag_z|Auditing acl|All auditing flags and settings",
        // Two blanks in the one, one in the other.
        "1|flag_1|Store MD5  signature of file or value|",
        "2|flag_2|Store SHA signature of file or value|",
    }, {
        "read tcamvsniopgz12",
        "anywhere $(A) is tcmvsniogpz2",
        "anywhere $(LOG) is tcnogpz",
        "EVT|flag_EVT|val_EVT|Event ID:||left",
        "Frame1|Properties to monitor|tcamvsniogpz12",
        "Button_Flag_All|All $(A)|Settings suitable for most files and directories|tcmvsniogpz2",
        "Button_Flag_Log|Log $(LOG)|Settings suitable for log files|tcnogpz",
    }},
    AlphabetCase {"Registry", registryFlags, {
        "c|flag_c|Classname|",
        "k|flag_k|Key info|Number of subkeys, values, lengths, etc.",
        "m|flag_m|Modification time|",
        "o|flag_o|Owner sid|",
        "g|flag_g|Group acl|Permissions for groups",
        "p|flag_p|Standard acl|Permissions for users",
        "z|flag_z|Auditing acl|All auditing flags and settings",
        "1|flag_1|Store MD5 signature of value(s)|",
        "2|flag_2|Store SHA signature of value(s)|",
    }, {
        "read ckmopgz12",
        "anywhere $(RA) is ckmogpz2",
        "EVT|flag_EVT|val_EVT|Event ID||left",
        "G|flag_XG|val_XG|Group values by||left",
        "Frame1|Properties to monitor|ckmogpz12",
        // Files and directories, although it is about keys.
        "Button_Flag_All|All $(RA)|Settings suitable for most files and directories|ckmogpz2",
        "Button_Flag_Log|Log|Settings suitable for log files|ckogpz",
    }},
    AlphabetCase {"User", userFlags, {
        "n|flag_n|Name|",
        "c|flag_c|Comment|",
        "C|flag_XC|User comment|",
        "d|flag_d|Country|",
        "j|flag_j|Logon hours|",
        "h|flag_h|Home directory|",
        "s|flag_s|Script path|",
        "p|flag_p|Profile|",
        "w|flag_w|Workstations user may logon to|",
        "l|flag_l|Number of logons|",
        "S|flag_XS|Server|",
        "o|flag_o|Password|",
        "a|flag_a|Password age|",
        "e|flag_e|Password expired|",
        "b|flag_b|Bad password count|",
        "x|flag_x|Account expires|",
        "m|flag_m|Max storage|",
        "u|flag_u|Uid|",
        "g|flag_g|Primary gid|",
        "M|flag_XM|Group membership|",
        "r|flag_r|RAS flags|",
        "R|flag_XR|RAS callback phone number|",
        "f|flag_f|User flags|",
        "L|flag_XL|Last logon|",
        "O|flag_XO|Last logoff|",
    }, {
        "read ncCdjhspwlSoaebxmugMrRfLO",
        "alone $(UA) is ncCdjhspwlSoebxmugMrRfLO",
        "EVT|flag_EVT|val_EVT|Event ID||left",
        "Frame1|User flags|ncCdjhspwlSoaebxmugMrRfLO",
        // Not the macro's spelling: "Mg" and "Rr" stand the other way round.
        "ButtonUA|$(UA)||ncCdjhspwlSoebxmuMgRrfLO",
    }},
    AlphabetCase {"Group", groupFlags, {
        "n|flag_n|Name|",
        "c|flag_c|Comment|",
        "g|flag_g|Group id|",
        "m|flag_m|Group membership|",
    }, {
        "read ncgm",
        "anywhere $(GA) is ncgm",
        "EVT|flag_EVT|val_EVT|Event ID||left",
        "Frame1|Group flags|ncgm",
        "ButtonGA|$(GA)||ncgm",
    }},
    AlphabetCase {"UserRight", userRightFlags, {
        "c|flag_c|Contents|",
    }, {
        "read c",
        "Frame1|Properties to monitor|c",
    }},
    AlphabetCase {"AccountPolicy", accountPolicyFlags, {
        "c|flag_c|All policies except \"user must log in\"|",
        "p|flag_p|User nust log in to change password|",
    }, {
        "read cp",
        "EVT|flag_EVT|val_EVT|Event ID||left",
        "Frame1|Properties to monitor|cp",
    }},
    AlphabetCase {"AuditPolicy", auditPolicyFlags, {}, {
        "read ",
        "EVT|flag_EVT|val_EVT|Event ID||left",
        "Frame1|Properties to monitor|",
    }},
    AlphabetCase {"DirectoryService", directoryServiceFlags, {
        "1|flag_1|Store MD5 signature of value(s)|",
        "2|flag_2|Store SHA signature of value(s)|",
    }, {
        "read 12",
        "D|flag_XD|val_XD|Store data rather than hash for items of size less than this many bytes|"
        "If this value is 0, hash is always stored; if value is -1, data is always stored|set",
        "Frame1|Properties to monitor|12",
    }},
    AlphabetCase {"Chooser", chooserFlags, {
        "k|flag_k|Key info (registry only)|Number of subkeys, values, lengths, etc.",
        "t|flag_t|Attributes|Read-only, hidden, etc.",
        "c|flag_c|Creation time (or classname)|",
        "a|flag_a|Access time|",
        "m|flag_m|Modification time|",
        volumeSerial,
        "s|flag_s|Size of file|",
        "n|flag_n|Number of links|",
        "i|flag_i|File index number|",
        "o|flag_o|Owner sid|",
        "g|flag_g|Group acl|Permissions for groups",
        "p|flag_p|Standard acl|Permissions for users",
        "z|flag_z|Auditing acl|All auditing flags and settings",
        "1|flag_1|Store MD5  signature of file or value|",
        "2|flag_2|Store SHA signature of file or value|",
    }, {
        "read ktcamvsniogpz12",
        "Frame1|Registry only|k",
        "Frame2|File only|tvsnia",
        "Frame3|Common|ogpz12cm",
    }},
};
// clang-format on

TEST_P(Alphabet, HasTheseLettersInTheOrderInWhichTheyAreWritten)
{
    EXPECT_EQ(lettersOf(GetParam().alphabet), GetParam().letters);
}

TEST_P(Alphabet, HasTheseMacrosOptionsFramesAndButtons)
{
    EXPECT_EQ(restOf(GetParam().alphabet), GetParam().rest);
}

TEST_P(Alphabet, NamesEachControlOnceAndAfterItsFlag)
{
    QSet<QString> names;
    qsizetype count = 0;
    const auto add = [&](QLatin1String name) {
        names << QString(name);
        ++count;
    };
    for (const FlagLetter &each : GetParam().alphabet.letters) {
        const QChar letter = QLatin1Char(each.letter);
        EXPECT_EQ(QString(each.control), QString(letter.isUpper() ? "flag_X" : "flag_") + letter);
        add(each.control);
    }
    for (const FlagOption &option : GetParam().alphabet.options) {
        EXPECT_EQ(QString(option.field).mid(4), QString(option.control).mid(5));
        add(option.control);
        add(option.field);
    }
    for (const FlagFrame &frame : GetParam().alphabet.frames)
        add(frame.control);
    for (const FlagQuickSet &set : GetParam().alphabet.quickSets)
        add(set.control);
    EXPECT_EQ(names.size(), count);
}

TEST_P(Alphabet, HasNoQuickLetterWithoutABox)
{
    for (const FlagQuickSet &set : GetParam().alphabet.quickSets) {
        for (const char letter : set.letters)
            EXPECT_TRUE(QString(GetParam().alphabet.readOrder).contains(QLatin1Char(letter))) << letter;
    }
}

INSTANTIATE_TEST_SUITE_P(Alphabets, Alphabet, testing::ValuesIn(alphabetCases),
                         [](const auto &tested) { return tested.param.name; });

TEST(AlphabetOrder, OnlyTheAccountPolicyReadsItsLettersFirst)
{
    for (const AlphabetCase &each : alphabetCases) {
        EXPECT_EQ(each.alphabet.readFirst == FlagAlphabet::ReadFirst::Letters, &each.alphabet == &accountPolicyFlags)
            << each.name;
    }
}

TEST(AlphabetOrder, OnlyTheChooserAppendsOtherFlagsAsTheyAre)
{
    for (const AlphabetCase &each : alphabetCases) {
        EXPECT_EQ(each.alphabet.otherFlags == FlagAlphabet::OtherFlags::Appended, &each.alphabet == &chooserFlags)
            << each.name;
    }
}

} // namespace
