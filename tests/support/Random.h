#pragma once

#include <QByteArray>
#include <QStringList>

#include <random>

/// Random values for property tests, the same ones in every run of the same seed.
class Random final
{
public:
    explicit Random(unsigned seed)
        : m_engine(seed)
    {
    }

    /// A number from low to high, both included.
    [[nodiscard]] int number(int low, int high)
    {
        return low + int(m_engine() % (static_cast<unsigned>(high - low) + 1U));
    }

    [[nodiscard]] bool chance(int percent) { return number(1, 100) <= percent; }

    template<class Container>
    [[nodiscard]] auto oneOf(const Container &values)
    {
        return values[number(0, int(std::size(values)) - 1)];
    }

    /// Pieces of alphabet, joined.
    [[nodiscard]] QString text(const QStringList &alphabet, int longest)
    {
        QString result;
        for (int count = number(0, longest); count > 0; --count)
            result += oneOf(alphabet);
        return result;
    }

    [[nodiscard]] QByteArray bytes(int longest)
    {
        QByteArray result;
        for (int count = number(0, longest); count > 0; --count)
            result += static_cast<char>(number(0, 255));
        return result;
    }

private:
    std::mt19937 m_engine;
};
