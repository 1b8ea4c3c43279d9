#pragma once

#include <QLatin1String>

#include <array>

/// A menu entry whose command was never finished: it shows a text and does nothing else.
struct UnfinishedCommand
{
    QLatin1String entry;
    QLatin1String text;
};

// clang-format off
inline constexpr std::array<UnfinishedCommand, 6> unfinishedCommands {{
    {QLatin1String("mnuFileSaveAll"),      QLatin1String("Add 'mnuFileSaveAll_Click' code.")},
    {QLatin1String("mnuFileProperties"),   QLatin1String("Add 'mnuFileProperties_Click' code.")},
    {QLatin1String("mnuFileSend"),         QLatin1String("Add 'mnuFileSend_Click' code.")},
    {QLatin1String("mnuEditPasteSpecial"), QLatin1String("Add 'mnuEditPasteSpecial_Click' code.")},
    {QLatin1String("mnuViewRefresh"),      QLatin1String("Add 'mnuViewRefresh_Click' code.")},
    {QLatin1String("mnuViewWebBrowser"),   QLatin1String("Add 'mnuViewWebBrowser_Click' code.")},
}};
// clang-format on
