#include "editors/FlagAlphabets.h"
#include "editors/FlagText.h"
#include "platform/ByteText.h"

#include <QDebug>

#include <array>
#include <cstdint>
#include <cstdlib>

namespace {

// Not an assertion: it has to hold in every kind of build.
void require(bool holds, const char *what)
{
    if (!holds) {
        qCritical("%s", what);
        std::abort();
    }
}

const std::array alphabets{&fileFlags,      &registryFlags,      &userFlags,        &groupFlags,
                           &userRightFlags, &accountPolicyFlags, &auditPolicyFlags, &directoryServiceFlags};

/// What is left of a text never holds a comma, and each letter is checked once at most.
void requireTakenApart(const FlagAlphabet &alphabet, const FlagText &parts)
{
    require(parts.options.size() == alphabet.options.size(), "every option has its controls");
    require(!parts.otherFlags.contains(u','), "no comma is left");
    for (const QChar letter : parts.letters)
        require(parts.letters.count(letter) == 1 && QString(alphabet.readOrder).contains(letter), "a letter is a box");
    for (const FlagText::Option &option : parts.options)
        require(option.isChecked == !option.text.isEmpty(), "a box without a number is not checked");
}

} // namespace

/// The first byte chooses the alphabet; the rest are flags.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const FlagAlphabet &alphabet = *alphabets.at(data[0] % alphabets.size());
    const QString flags = decodeBytes(QByteArrayView(data + 1, qsizetype(size) - 1));
    const FlagText parts = parseFlags(alphabet, flags);
    requireTakenApart(alphabet, parts);

    const QString written = buildFlags(alphabet, parts);
    const FlagText again = parseFlags(alphabet, written);
    requireTakenApart(alphabet, again);
    // What letters and options leave behind may make up others of them, and the user's macro is not read again with an
    // option behind it; everything else is written as it was read.
    const bool isUserOption = &alphabet == &userFlags && parts.options[0].isChecked;
    if (parts.otherFlags.isEmpty() && !isUserOption)
        require(again == parts && buildFlags(alphabet, again) == written, "flags are read as they were written");
    return 0;
}
