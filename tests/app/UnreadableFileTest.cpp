#include "tests/app/ProgramFixture.h"

#include <QFile>

#include <unistd.h>

namespace {

/// The rights of a user without any, for as long as this lives; who has few rights anyway keeps them.
class FewRights final
{
public:
    FewRights()
        : m_before(geteuid())
    {
        if (m_before == 0) {
            constexpr uid_t nobody = 65534;
            EXPECT_EQ(seteuid(nobody), 0);
        }
    }
    FewRights(const FewRights &) = delete;
    FewRights &operator=(const FewRights &) = delete;
    ~FewRights()
    {
        if (geteuid() != m_before) {
            EXPECT_EQ(seteuid(m_before), 0);
        }
    }

private:
    uid_t m_before;
};

class Unreadable : public ProgramOnFiles
{
protected:
    void SetUp() override
    {
        // The way to the file is open to everybody.
        ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7755)));
        good = write("good.zcf", "g\r\n");
        secret = write("secret.zcf", "s\r\n");
        ASSERT_TRUE(QFile::setPermissions(secret, QFile::Permissions()));
        start({good});
    }

    QString good;
    QString secret;
};

TEST_F(Unreadable, AFileThatMayNotBeReadIsReportedAndTheOthersStay)
{
    messages.expectShow("Run-time error '70':\n\nPermission denied\n\n" + secret, Messages::Icon::Critical);
    {
        const FewRights rights;
        window->LoadAll({secret});
    }
    messages.verify();
    EXPECT_EQ(captions(), QStringList{good});
    EXPECT_EQ(activeCaption(), good);
}

TEST_F(Unreadable, AFileThatMayNotBeWrittenIsReportedAndTheDocumentStaysChanged)
{
    document(0).setChanged(-1);
    messages.expectShow("Run-time error '70':\n\nPermission denied\n\n" + good, Messages::Icon::Critical);
    ASSERT_TRUE(QFile::setPermissions(good, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    {
        const FewRights rights;
        trigger(*window, "mnuFileSave");
    }
    messages.verify();
    EXPECT_EQ(document(0).changed(), -1);
    EXPECT_EQ(bytesOf(good), "g\r\n");
}

} // namespace
