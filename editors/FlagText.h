#pragma once

#include <QString>

#include <vector>

struct FlagAlphabet;

/// A flags text taken apart, as the controls of an editor show it.
struct FlagText
{
    struct Option
    {
        bool isChecked = false;
        QString text;

        bool operator==(const Option &) const = default;
    };

    /// The checked letters, in any order.
    QString letters;
    /// One for each option of the alphabet, in its order.
    std::vector<Option> options;
    /// What the alphabet has no control for.
    QString otherFlags;

    bool operator==(const FlagText &) const = default;
};

/// Puts a flags text together: the checked letters in the order of the alphabet, or the macro that stands for exactly
/// these; each checked option with its text without the blanks around it; the other flags as they are.
[[nodiscard]] QString buildFlags(const FlagAlphabet &alphabet, const FlagText &parts);

/// Takes a flags text apart. Each letter and option is taken where it stands first, whatever it is a part of there, and
/// once only: what is left, without any comma, becomes the other flags.
/// @param before what the controls show up to now: an option that was checked stays so, also where the text has none
[[nodiscard]] FlagText parseFlags(const FlagAlphabet &alphabet, QString flags, const FlagText &before = {});
