#pragma once

#include "platform/DataSources.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

/// A driver manager with data sources of a test. An environment that is not given back fails the test.
class FakeDataSources final : public DataSources
{
public:
    ~FakeDataSources() override { EXPECT_EQ(environments, 0) << "an environment was not given back"; }

    Result SQLAllocEnv(Environment *environment) override
    {
        *environment = isWorking ? this : nullptr;
        environments += isWorking ? 1 : 0;
        return isWorking ? Result::Success : Result::Error;
    }

    Result SQLDataSources(Environment environment, quint16 direction, char *name, qint16 nameSize,
                          qint16 *nameLength) override
    {
        EXPECT_EQ(environment, this);
        directions << direction;
        if (direction == FetchFirst)
            m_next = 0;
        if (m_next == failing)
            return Result::Error;
        if (m_next == names.size())
            return Result::NoData;
        const QByteArray &found = names[m_next++];
        const qsizetype given = std::min<qsizetype>(found.size(), nameSize - 1);
        std::memcpy(name, found.constData(), size_t(given));
        name[given] = '\0';
        *nameLength = static_cast<qint16>(found.size());
        return given < found.size() ? Result::SuccessWithInfo : Result::Success;
    }

    Result SQLFreeEnv(Environment environment) override
    {
        EXPECT_EQ(environment, this);
        --environments;
        return Result::Success;
    }

    QByteArrayList names;
    bool isWorking = true;
    /// The position at which the list breaks off.
    qsizetype failing = -1;
    /// Of each question for a data source.
    QList<quint16> directions;
    int environments = 0;

private:
    qsizetype m_next = 0;
};
