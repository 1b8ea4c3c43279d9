#pragma once

#include <QLatin1String>

#include <span>

/// A flag of one letter and the check box that stands for it.
struct FlagLetter
{
    char letter;
    QLatin1String control;
    QLatin1String caption;
    QLatin1String toolTip;
};

/// A flag with a number behind it, set off by a comma: its check box and the field of the number, which is enabled
/// while the box is checked.
struct FlagOption
{
    QLatin1String name;
    QLatin1String control;
    QLatin1String field;
    QLatin1String caption;
    QLatin1String fieldToolTip;
    /// Whether SetAllFlags changes this box as it changes those of the letters.
    bool isSetWithLetters;
};

/// A word that stands for a set of letters. It is written when exactly these are checked.
struct FlagMacro
{
    enum class Expanded {
        /// Wherever it stands.
        Anywhere,
        /// Only where it is the whole flags text.
        Alone,
    };

    QLatin1String text;
    /// In the order in which letters are written.
    QLatin1String letters;
    Expanded expanded;
};

/// A button that checks a set of letters and clears the others.
struct FlagQuickSet
{
    QLatin1String control;
    QLatin1String caption;
    QLatin1String toolTip;
    QLatin1String letters;
};

/// A group of check boxes as a form shows it: a frame, its letters from top to bottom, and in how many columns.
struct FlagFrame
{
    QLatin1String control;
    QLatin1String caption;
    QLatin1String letters;
    int columns;
};

/// The flags of one kind of line: what is written, what is read, and the controls for it.
struct FlagAlphabet
{
    enum class ReadFirst { Options, Letters };
    enum class OtherFlags {
        /// Set off by a comma; a comma at the front of the whole text is dropped.
        BehindComma,
        /// Appended as they are.
        Appended,
    };

    /// In the order in which they are written.
    std::span<const FlagLetter> letters;
    /// The same letters in the order in which they are read.
    QLatin1String readOrder;
    std::span<const FlagMacro> macros;
    /// In the order in which they are read and written.
    std::span<const FlagOption> options;
    ReadFirst readFirst;
    OtherFlags otherFlags;
    std::span<const FlagFrame> frames;
    std::span<const FlagQuickSet> quickSets;
};
