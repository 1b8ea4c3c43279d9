#include "tests/platform/ChildProcess.h"

#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>

namespace {

constexpr unsigned nobody = 65534;
constexpr unsigned patienceSeconds = 100;

bool becomeOrdinaryUser()
{
    if (!isAdministrator())
        return true;
    // A process that has changed its user hides what is below /proc/self from itself until it is told not to.
    return setgroups(0, nullptr) == 0 && setresgid(nobody, nobody, nobody) == 0 &&
           setresuid(nobody, nobody, nobody) == 0 && prctl(PR_SET_DUMPABLE, 1, 0, 0, 0) == 0;
}

bool store(const char *path, const std::string &text)
{
    std::ofstream file(path);
    return bool(file << text << std::flush);
}

bool makeMountsPrivate()
{
    return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// The administrator's mounts need nothing; anybody else gets the right in a user name space: user_namespaces(7).
bool becomeMounter()
{
    if (isAdministrator() && unshare(CLONE_NEWNS) == 0)
        return makeMountsPrivate();
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && store("/proc/self/setgroups", "deny") &&
           store("/proc/self/uid_map", "0 " + user + " 1") && store("/proc/self/gid_map", "0 " + group + " 1") &&
           makeMountsPrivate();
}

void expectGood(const std::function<bool()> &prepare, const std::function<void()> &work)
{
    EXPECT_EQ(exitCodeOf([&] {
                  const bool isReady = prepare();
                  EXPECT_TRUE(isReady) << std::strerror(errno);
                  if (isReady)
                      work();
                  std::fflush(stdout);
                  _exit(testing::Test::HasFailure() ? 1 : 0);
              }),
              0)
        << "see above for what the child process says";
}

} // namespace

bool isAdministrator()
{
    return geteuid() == 0;
}

unsigned ordinaryUser()
{
    return isAdministrator() ? nobody : geteuid();
}

void giveToOrdinaryUser(const QByteArray &path)
{
    if (isAdministrator()) {
        EXPECT_EQ(lchown(path.constData(), nobody, nobody), 0) << path.constData();
    }
}

int exitCodeOf(const std::function<void()> &work)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        alarm(patienceSeconds);
        work();
        _exit(0);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void inChild(const std::function<void()> &work)
{
    expectGood([] { return true; }, work);
}

void asOrdinaryUser(const std::function<void()> &work)
{
    expectGood(becomeOrdinaryUser, work);
}

void withOwnMounts(const std::function<void()> &work)
{
    expectGood(becomeMounter, work);
}
