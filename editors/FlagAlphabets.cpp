#include "editors/FlagAlphabets.h"

#include <algorithm>
#include <array>

namespace {

using L = QLatin1String;

constexpr auto anywhere = FlagMacro::Expanded::Anywhere;
constexpr auto alone = FlagMacro::Expanded::Alone;
constexpr auto optionsFirst = FlagAlphabet::ReadFirst::Options;
constexpr auto lettersFirst = FlagAlphabet::ReadFirst::Letters;
constexpr auto behindComma = FlagAlphabet::OtherFlags::BehindComma;
constexpr auto appended = FlagAlphabet::OtherFlags::Appended;

// clang-format off

// Files and directories

constexpr L fileAll("tcmvsniogpz2");
constexpr L fileLog("tcnogpz");

constexpr std::array<FlagLetter, 14> fileLetters {{
    {'t', L("flag_t"), L("Attributes"),        L("Read-only, hidden, etc.")},
    {'c', L("flag_c"), L("Creation time"),     L()},
    {'a', L("flag_a"), L("Access time"),       L()},
    {'m', L("flag_m"), L("Modification time"), L()},
    {'v', L("flag_v"), L("Volume serial"),     L("Each drive has a serial number associated with it. This would detect a repartitioning or drive change.")},
    {'s', L("flag_s"), L("Size of file"),      L()},
    {'n', L("flag_n"), L("Number of links"),   L()},
    {'i', L("flag_i"), L("File index number"), L()},
    {'o', L("flag_o"), L("Owner sid"),         L()},
    {'g', L("flag_g"), L("Group acl"),         L("Permissions for groups")},
    {'p', L("flag_p"), L("Standard acl"),      L("Permissions for users")},
    {'z', L("flag_z"), L("Auditing acl"),      L("All auditing flags and settings")},
    {'1', L("flag_1"), L("Store MD5  signature of file or value"), L()},
    {'2', L("flag_2"), L("Store SHA signature of file or value"),  L()},
}};
constexpr std::array<FlagMacro, 2> fileMacros {{
    {L("$(A)"),   fileAll, anywhere},
    {L("$(LOG)"), fileLog, anywhere},
}};
constexpr std::array<FlagOption, 1> fileOptions {{
    {L("EVT"), L("flag_EVT"), L("val_EVT"), L("Event ID:"), L(), false},
}};
constexpr std::array<FlagFrame, 1> fileFrames {{
    {L("Frame1"), L("Properties to monitor"), L("tcamvsniogpz12"), 2},
}};
constexpr std::array<FlagQuickSet, 2> fileQuickSets {{
    {L("Button_Flag_All"), L("All $(A)"),   L("Settings suitable for most files and directories"), fileAll},
    {L("Button_Flag_Log"), L("Log $(LOG)"), L("Settings suitable for log files"),                  fileLog},
}};

// Registry

constexpr L registryAll("ckmogpz2");
// No macro stands for this set.
constexpr L registryLog("ckogpz");

constexpr std::array<FlagLetter, 9> registryLetters {{
    {'c', L("flag_c"), L("Classname"),         L()},
    {'k', L("flag_k"), L("Key info"),          L("Number of subkeys, values, lengths, etc.")},
    {'m', L("flag_m"), L("Modification time"), L()},
    {'o', L("flag_o"), L("Owner sid"),         L()},
    {'g', L("flag_g"), L("Group acl"),         L("Permissions for groups")},
    {'p', L("flag_p"), L("Standard acl"),      L("Permissions for users")},
    {'z', L("flag_z"), L("Auditing acl"),      L("All auditing flags and settings")},
    {'1', L("flag_1"), L("Store MD5 signature of value(s)"), L()},
    {'2', L("flag_2"), L("Store SHA signature of value(s)"), L()},
}};
constexpr std::array<FlagMacro, 1> registryMacros {{
    {L("$(RA)"), registryAll, anywhere},
}};
constexpr std::array<FlagOption, 2> registryOptions {{
    {L("EVT"), L("flag_EVT"), L("val_EVT"), L("Event ID"),        L(), false},
    {L("G"),   L("flag_XG"),  L("val_XG"),  L("Group values by"), L(), false},
}};
constexpr std::array<FlagFrame, 1> registryFrames {{
    {L("Frame1"), L("Properties to monitor"), L("ckmogpz12"), 2},
}};
// The tool tip speaks of files here too; it has always been so.
constexpr std::array<FlagQuickSet, 2> registryQuickSets {{
    {L("Button_Flag_All"), L("All $(RA)"), L("Settings suitable for most files and directories"), registryAll},
    {L("Button_Flag_Log"), L("Log"),       L("Settings suitable for log files"),                  registryLog},
}};

// Users

constexpr std::array<FlagOption, 1> eventOption {{
    {L("EVT"), L("flag_EVT"), L("val_EVT"), L("Event ID"), L(), false},
}};

constexpr L userAll("ncCdjhspwlSoebxmugMrRfLO");
// The same letters as the button has always given them; it does not matter, since each is looked for by itself.
constexpr L userAllOfButton("ncCdjhspwlSoebxmuMgRrfLO");

constexpr std::array<FlagLetter, 25> userLetters {{
    {'n', L("flag_n"),  L("Name"),                           L()},
    {'c', L("flag_c"),  L("Comment"),                        L()},
    {'C', L("flag_XC"), L("User comment"),                   L()},
    {'d', L("flag_d"),  L("Country"),                        L()},
    {'j', L("flag_j"),  L("Logon hours"),                    L()},
    {'h', L("flag_h"),  L("Home directory"),                 L()},
    {'s', L("flag_s"),  L("Script path"),                    L()},
    {'p', L("flag_p"),  L("Profile"),                        L()},
    {'w', L("flag_w"),  L("Workstations user may logon to"), L()},
    {'l', L("flag_l"),  L("Number of logons"),               L()},
    {'S', L("flag_XS"), L("Server"),                         L()},
    {'o', L("flag_o"),  L("Password"),                       L()},
    {'a', L("flag_a"),  L("Password age"),                   L()},
    {'e', L("flag_e"),  L("Password expired"),               L()},
    {'b', L("flag_b"),  L("Bad password count"),             L()},
    {'x', L("flag_x"),  L("Account expires"),                L()},
    {'m', L("flag_m"),  L("Max storage"),                    L()},
    {'u', L("flag_u"),  L("Uid"),                            L()},
    {'g', L("flag_g"),  L("Primary gid"),                    L()},
    {'M', L("flag_XM"), L("Group membership"),               L()},
    {'r', L("flag_r"),  L("RAS flags"),                      L()},
    {'R', L("flag_XR"), L("RAS callback phone number"),      L()},
    {'f', L("flag_f"),  L("User flags"),                     L()},
    {'L', L("flag_XL"), L("Last logon"),                     L()},
    {'O', L("flag_XO"), L("Last logoff"),                    L()},
}};
// With anything behind it, this macro has never been expanded.
constexpr std::array<FlagMacro, 1> userMacros {{
    {L("$(UA)"), userAll, alone},
}};
constexpr std::array<FlagFrame, 1> userFrames {{
    {L("Frame1"), L("User flags"), L("ncCdjhspwlSoaebxmugMrRfLO"), 3},
}};
constexpr std::array<FlagQuickSet, 1> userQuickSets {{
    {L("ButtonUA"), L("$(UA)"), L(), userAllOfButton},
}};

// Groups

constexpr L groupAll("ncgm");

constexpr std::array<FlagLetter, 4> groupLetters {{
    {'n', L("flag_n"), L("Name"),             L()},
    {'c', L("flag_c"), L("Comment"),          L()},
    {'g', L("flag_g"), L("Group id"),         L()},
    {'m', L("flag_m"), L("Group membership"), L()},
}};
constexpr std::array<FlagMacro, 1> groupMacros {{
    {L("$(GA)"), groupAll, anywhere},
}};
constexpr std::array<FlagFrame, 1> groupFrames {{
    {L("Frame1"), L("Group flags"), groupAll, 2},
}};
constexpr std::array<FlagQuickSet, 1> groupQuickSets {{
    {L("ButtonGA"), L("$(GA)"), L(), groupAll},
}};

// User rights and policies

constexpr std::array<FlagLetter, 1> userRightLetters {{
    {'c', L("flag_c"), L("Contents"), L()},
}};
constexpr std::array<FlagFrame, 1> userRightFrames {{
    {L("Frame1"), L("Properties to monitor"), L("c"), 1},
}};

constexpr std::array<FlagLetter, 2> accountPolicyLetters {{
    {'c', L("flag_c"), L("All policies except \"user must log in\""),  L()},
    {'p', L("flag_p"), L("User nust log in to change password"),       L()},
}};
constexpr std::array<FlagFrame, 1> accountPolicyFrames {{
    {L("Frame1"), L("Properties to monitor"), L("cp"), 1},
}};

constexpr std::array<FlagFrame, 1> auditPolicyFrames {{
    {L("Frame1"), L("Properties to monitor"), L(""), 1},
}};

// Directory services

constexpr std::array<FlagLetter, 2> directoryServiceLetters {{
    {'1', L("flag_1"), L("Store MD5 signature of value(s)"), L()},
    {'2', L("flag_2"), L("Store SHA signature of value(s)"), L()},
}};
constexpr std::array<FlagOption, 1> directoryServiceOptions {{
    {L("D"), L("flag_XD"), L("val_XD"), L("Store data rather than hash for items of size less than this many bytes"),
     L("If this value is 0, hash is always stored; if value is -1, data is always stored"), true},
}};
constexpr std::array<FlagFrame, 1> directoryServiceFrames {{
    {L("Frame1"), L("Properties to monitor"), L("12"), 1},
}};

// The flag chooser

constexpr std::array<FlagLetter, 15> chooserLetters {{
    {'k', L("flag_k"), L("Key info (registry only)"),     L("Number of subkeys, values, lengths, etc.")},
    {'t', L("flag_t"), L("Attributes"),                   L("Read-only, hidden, etc.")},
    {'c', L("flag_c"), L("Creation time (or classname)"), L()},
    {'a', L("flag_a"), L("Access time"),                  L()},
    {'m', L("flag_m"), L("Modification time"),            L()},
    {'v', L("flag_v"), L("Volume serial"),                L("Each drive has a serial number associated with it. This would detect a repartitioning or drive change.")},
    {'s', L("flag_s"), L("Size of file"),                 L()},
    {'n', L("flag_n"), L("Number of links"),              L()},
    {'i', L("flag_i"), L("File index number"),            L()},
    {'o', L("flag_o"), L("Owner sid"),                    L()},
    {'g', L("flag_g"), L("Group acl"),                    L("Permissions for groups")},
    {'p', L("flag_p"), L("Standard acl"),                 L("Permissions for users")},
    {'z', L("flag_z"), L("Auditing acl"),                 L("All auditing flags and settings")},
    {'1', L("flag_1"), L("Store MD5  signature of file or value"), L()},
    {'2', L("flag_2"), L("Store SHA signature of file or value"),  L()},
}};
constexpr std::array<FlagFrame, 3> chooserFrames {{
    {L("Frame1"), L("Registry only"), L("k"),        1},
    {L("Frame2"), L("File only"),     L("tvsnia"),   2},
    {L("Frame3"), L("Common"),        L("ogpz12cm"), 2},
}};

// clang-format on

// What has to hold for every alphabet

constexpr bool holdsOnce(L text, char letter)
{
    return std::count(text.begin(), text.end(), letter) == 1;
}

/// Whether text has every letter once and nothing else.
constexpr bool isPermutation(const FlagAlphabet &alphabet, L text)
{
    return text.size() == qsizetype(alphabet.letters.size()) &&
           std::all_of(alphabet.letters.begin(), alphabet.letters.end(),
                       [text](const FlagLetter &each) { return holdsOnce(text, each.letter); });
}

/// Whether the letters of text stand in the order in which they are written: otherwise a macro would never be written.
constexpr bool isInWriteOrder(const FlagAlphabet &alphabet, L text)
{
    qsizetype found = 0;
    for (const FlagLetter &each : alphabet.letters) {
        if (found < text.size() && text.begin()[found] == each.letter)
            ++found;
    }
    return found == text.size();
}

constexpr bool isShownOnce(const FlagAlphabet &alphabet)
{
    qsizetype shown = 0;
    for (const FlagFrame &frame : alphabet.frames)
        shown += frame.letters.size();
    return shown == qsizetype(alphabet.letters.size()) &&
           std::all_of(alphabet.letters.begin(), alphabet.letters.end(), [&](const FlagLetter &each) {
               return std::count_if(alphabet.frames.begin(), alphabet.frames.end(),
                                    [&](const FlagFrame &frame) { return holdsOnce(frame.letters, each.letter); }) == 1;
           });
}

constexpr bool isConsistent(const FlagAlphabet &alphabet)
{
    return isPermutation(alphabet, alphabet.readOrder) && isShownOnce(alphabet) &&
           std::all_of(alphabet.macros.begin(), alphabet.macros.end(),
                       [&](const FlagMacro &macro) { return isInWriteOrder(alphabet, macro.letters); });
}

} // namespace

// clang-format off
//                                            letters                  read order                      macros          options                  read first    other flags  frames                  quick sets
constexpr FlagAlphabet fileFlags             {fileLetters,             L("tcamvsniopgz12"),            fileMacros,     fileOptions,             optionsFirst, behindComma, fileFrames,             fileQuickSets};
constexpr FlagAlphabet registryFlags         {registryLetters,         L("ckmopgz12"),                 registryMacros, registryOptions,         optionsFirst, behindComma, registryFrames,         registryQuickSets};
constexpr FlagAlphabet userFlags             {userLetters,             L("ncCdjhspwlSoaebxmugMrRfLO"), userMacros,     eventOption,             optionsFirst, behindComma, userFrames,             userQuickSets};
constexpr FlagAlphabet groupFlags            {groupLetters,            groupAll,                       groupMacros,    eventOption,             optionsFirst, behindComma, groupFrames,            groupQuickSets};
constexpr FlagAlphabet userRightFlags        {userRightLetters,        L("c"),                         {},             {},                      optionsFirst, behindComma, userRightFrames,        {}};
constexpr FlagAlphabet accountPolicyFlags    {accountPolicyLetters,    L("cp"),                        {},             eventOption,             lettersFirst, behindComma, accountPolicyFrames,    {}};
constexpr FlagAlphabet auditPolicyFlags      {{},                      L(""),                          {},             eventOption,             optionsFirst, behindComma, auditPolicyFrames,      {}};
constexpr FlagAlphabet directoryServiceFlags {directoryServiceLetters, L("12"),                        {},             directoryServiceOptions, optionsFirst, behindComma, directoryServiceFrames, {}};
constexpr FlagAlphabet chooserFlags          {chooserLetters,          L("ktcamvsniogpz12"),           {},             {},                      optionsFirst, appended,    chooserFrames,          {}};
// clang-format on

static_assert(isConsistent(fileFlags));
static_assert(isConsistent(registryFlags));
static_assert(isConsistent(userFlags));
static_assert(isConsistent(groupFlags));
static_assert(isConsistent(userRightFlags));
static_assert(isConsistent(accountPolicyFlags));
static_assert(isConsistent(auditPolicyFlags));
static_assert(isConsistent(directoryServiceFlags));
static_assert(isConsistent(chooserFlags));
