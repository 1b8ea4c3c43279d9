#include "platform/linux/NameService.h"

void NameService::setpwent()
{
    ::setpwent();
}

int NameService::getpwent_r(passwd *entry, char *buffer, size_t size, passwd **result)
{
    return ::getpwent_r(entry, buffer, size, result);
}

void NameService::endpwent()
{
    ::endpwent();
}

void NameService::setgrent()
{
    ::setgrent();
}

int NameService::getgrent_r(group *entry, char *buffer, size_t size, group **result)
{
    return ::getgrent_r(entry, buffer, size, result);
}

void NameService::endgrent()
{
    ::endgrent();
}
