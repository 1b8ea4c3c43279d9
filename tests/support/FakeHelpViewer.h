#pragma once

#include "platform/HelpViewer.h"
#include "platform/RuntimeError.h"

#include <QList>
#include <QStringList>

#include <optional>

/// A viewer that remembers what it was to show.
class FakeHelpViewer final : public HelpViewer
{
public:
    struct Call
    {
        QString file;
        Command command;
        quint32 topic;

        bool operator==(const Call &) const = default;
    };

    [[nodiscard]] bool hasFile(const QString &file) const override { return files.contains(file); }

    void HtmlHelpA(const QString &file, Command command, quint32 topic) override
    {
        calls << Call{file, command, topic};
        if (error)
            throw *error;
    }

    QStringList files;
    QList<Call> calls;
    /// Raised by every call while it is set.
    std::optional<RuntimeError> error;
};
