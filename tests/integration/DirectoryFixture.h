#pragma once

#include "platform/LdapDirectory.h"
#include "tests/integration/DirectoryServer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

/// Opens entries as a program does, one after the other.
class LdapDirectoryTest : public testing::Test
{
protected:
    LdapDirectoryTest()
    {
        // The tests that wait for the end of a limit do not wait long.
        limits.connect = std::chrono::milliseconds(2000);
        limits.operation = std::chrono::milliseconds(20'000);
    }

    [[nodiscard]] Directory &directory()
    {
        if (!m_directory)
            m_directory = std::make_unique<LdapDirectory>(limits);
        return *m_directory;
    }

    DirectoryStatus open(const QString &path, const QString &user = {}, const QString &password = {},
                         Directory::Flags flags = Directory::None)
    {
        object.reset();
        DirectoryStatus status = directory().OpenDSObject(path, user, password, flags, goOn, object);
        EXPECT_EQ(object != nullptr, status.isSuccess());
        EXPECT_FALSE(!password.isEmpty() && status.text.contains(password));
        return status;
    }

    [[nodiscard]] QList<DirectoryChild> childrenOf(const QString &path)
    {
        EXPECT_EQ(open(path).text, QString());
        QList<DirectoryChild> children;
        if (object) {
            EXPECT_EQ(object->children([&](const QList<DirectoryChild> &some) { children << some; }).text, QString());
        }
        return children;
    }

    [[nodiscard]] QList<QByteArray> valuesOf(const char *name)
    {
        QList<QByteArray> values;
        if (object) {
            EXPECT_EQ(object->property(name, values).text, QString());
        }
        return values;
    }

    LdapLimits limits;
    Directory::GoOn goOn = [] { return true; };
    std::unique_ptr<DirectoryObject> object;

private:
    std::unique_ptr<Directory> m_directory;
};

/// With a server that a test starts when it has what it needs.
class RealDirectory : public LdapDirectoryTest
{
protected:
    DirectoryServer server;
};
