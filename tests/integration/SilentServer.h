#pragma once

#include <memory>

/// A server that takes connections and does nothing else, ends each at once, or begins an answer and never ends it.
class SilentServer final
{
public:
    enum class Manner { Waits, Drops, Begins };

    explicit SilentServer(Manner manner);
    SilentServer(const SilentServer &) = delete;
    SilentServer &operator=(const SilentServer &) = delete;
    ~SilentServer();

    [[nodiscard]] int port() const;

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};
