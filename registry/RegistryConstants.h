#pragma once

#include "platform/Registry.h"

#include <QLatin1String>

#include <array>

/// The numbers of the registry: hives, rights and types of values, as the system's manual has them.
namespace RegistryConstants {

/// One of the predefined keys.
struct Hive
{
    QLatin1String name;
    Registry::Handle handle;
    /// The short name that is shown, and the one that is understood. They differ for HKEY_DYN_DATA: what users and
    /// their files have always seen stays.
    QLatin1String shown;
    QLatin1String understood;
};

// clang-format off
inline constexpr std::array<Hive, 7> hives {{
    {QLatin1String("HKEY_CLASSES_ROOT"),     Registry::ClassesRoot,     QLatin1String("HKCR"), QLatin1String("HKCR")},
    {QLatin1String("HKEY_CURRENT_USER"),     Registry::CurrentUser,     QLatin1String("HKCU"), QLatin1String("HKCU")},
    {QLatin1String("HKEY_LOCAL_MACHINE"),    Registry::LocalMachine,    QLatin1String("HKLM"), QLatin1String("HKLM")},
    {QLatin1String("HKEY_USERS"),            Registry::Users,           QLatin1String("HKU"),  QLatin1String("HKU")},
    {QLatin1String("HKEY_PERFORMANCE_DATA"), Registry::PerformanceData, QLatin1String("HKPD"), QLatin1String("HKPD")},
    {QLatin1String("HKEY_CURRENT_CONFIG"),   Registry::CurrentConfig,   QLatin1String("HKCC"), QLatin1String("HKCC")},
    {QLatin1String("HKEY_DYN_DATA"),         Registry::DynData,         QLatin1String("HKDN"), QLatin1String("HKDD")},
}};

/// What every key is opened with.
inline constexpr quint32 allAccess = 0xF003F;

/// Types of values.
inline constexpr quint32 typeNone            = 0;
inline constexpr quint32 typeText            = 1;
inline constexpr quint32 typeExpandableText  = 2;
inline constexpr quint32 typeBytes           = 3;
inline constexpr quint32 typeNumber          = 4;
inline constexpr quint32 typeBigEndianNumber = 5;
inline constexpr quint32 typeLink            = 6;
inline constexpr quint32 typeTexts           = 7;
inline constexpr quint32 typeLongNumber      = 11;
// clang-format on

static_assert(allAccess == Registry::AllAccess);

} // namespace RegistryConstants
