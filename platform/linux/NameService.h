#pragma once

#include <grp.h>
#include <pwd.h>

#include <cstddef>

/// The calls of the name service switch that read all users and groups, each as its manual page (section 3) has it. A
/// test puts its own accounts in their place.
class NameService
{
public:
    NameService() = default;
    NameService(const NameService &) = delete;
    NameService &operator=(const NameService &) = delete;
    virtual ~NameService() = default;

    virtual void setpwent();
    virtual int getpwent_r(passwd *entry, char *buffer, size_t size, passwd **result);
    virtual void endpwent();

    virtual void setgrent();
    virtual int getgrent_r(group *entry, char *buffer, size_t size, group **result);
    virtual void endgrent();
};
