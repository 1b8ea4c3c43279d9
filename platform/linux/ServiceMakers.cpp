#include "platform/LdapDirectory.h"
#include "platform/linux/LateDataSources.h"
#include "platform/linux/LateDirectory.h"
#include "platform/OdbcDataSources.h"

// The functions that ServiceLibrary looks for.

extern "C" Q_DECL_EXPORT LateDirectory::Make makeDirectory;
extern "C" Q_DECL_EXPORT LateDataSources::Make makeDataSources;

Directory *makeDirectory()
{
    return new LdapDirectory;
}

DataSources *makeDataSources()
{
    return new OdbcDataSources;
}
