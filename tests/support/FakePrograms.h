#pragma once

#include "platform/Programs.h"

/// Programs that remember what was started.
class FakePrograms final : public Programs
{
public:
    [[nodiscard]] bool start(const QString &program, const QStringList &arguments) override
    {
        started << QStringList(program) + arguments;
        return isStartable;
    }

    [[nodiscard]] QStringList systemInformationTools() const override { return tools; }

    /// Each that was to be started, with its arguments.
    QList<QStringList> started;
    bool isStartable = true;
    QStringList tools;
};
