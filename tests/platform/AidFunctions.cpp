// Stands in for the monitor's library. Its functions use all the room that they are promised, and say so with a text of
// their own when there is less, or when it is not empty.

#include <cstring>

namespace {

constexpr const char *end = "-end-";

bool isEmpty(const char *room, size_t size)
{
    for (size_t i = 0; i < size; ++i) {
        if (room[i] != '\0')
            return false;
    }
    return true;
}

} // namespace

extern "C" {

/// Four characters for each, and five behind them: with the zero, all the room there is.
void AidScramble(char *text)
{
    const size_t length = std::strlen(text);
    if (!isEmpty(text + length, 3 * length + 6)) {
        std::strcpy(text, "!");
        return;
    }
    for (size_t i = length; i-- > 0;) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const char digits[] = {char('a' + byte / 100), char('a' + byte / 10 % 10), char('a' + byte % 10), '.'};
        std::memcpy(text + 4 * i, digits, sizeof digits);
    }
    std::strcpy(text + 4 * length, end);
}

/// The other way round. Anything that has not been scrambled here is left alone.
void AidUnscramble(char *text)
{
    const size_t length = std::strlen(text);
    const size_t endLength = std::strlen(end);
    if (length < endLength || std::strcmp(text + length - endLength, end) != 0)
        return;
    size_t i = 0;
    for (; 4 * i + endLength < length; ++i)
        text[i] = static_cast<char>((text[4 * i] - 'a') * 100 + (text[4 * i + 1] - 'a') * 10 + (text[4 * i + 2] - 'a'));
    text[i] = '\0';
}
}
