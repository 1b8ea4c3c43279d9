#include "config/ShellPresence.h"

#include "config/DocumentShell.h"

#include <array>

namespace {

const QLatin1String undoEntry("mnuEditUndo");

/// What of the main window belongs to the active document: a name and whether it is shown or enabled while a document
/// is active. Everything that is shown or enabled here is taken back when the document is left, apart from the entries
/// of the Edit menu, which go with the menu.
struct ShellState
{
    QLatin1String name;
    bool isOn;
};

// clang-format off
constexpr std::array<ShellState, 9> menusWhenActive {{
    {QLatin1String("mnuItem"),             true},
    {QLatin1String("mnuFilePrint"),        true},
    {QLatin1String("mnuEdit"),             true},
    {QLatin1String("mnuEditUndo"),         true},
    {QLatin1String("mnuEditBar0"),         true},
    {QLatin1String("mnuEditCopy"),         true},
    {QLatin1String("mnuEditCut"),          true},
    {QLatin1String("mnuEditPaste"),        true},
    {QLatin1String("mnuEditPasteSpecial"), false},
}};

constexpr std::array<QLatin1String, 5> menusHiddenWhenLeft {
    QLatin1String("mnuItem"), QLatin1String("mnuFilePrint"),
    QLatin1String("mnuEdit"), QLatin1String("mnuEditUndo"), QLatin1String("mnuEditBar0"),
};

constexpr std::array<QLatin1String, 4> documentButtons {
    QLatin1String("Print"), QLatin1String("Copy"), QLatin1String("Cut"), QLatin1String("Paste"),
};
// clang-format on

} // namespace

ShellPresence::ShellPresence(DocumentShell &shell)
    : m_shell(shell)
{
}

void ShellPresence::enter()
{
    if (m_isActive)
        return;
    m_isActive = true;
    for (const ShellState &menu : menusWhenActive)
        m_shell.setMenuVisible(menu.name, menu.isOn);
    for (const QLatin1String key : documentButtons)
        m_shell.setToolButtonEnabled(key, true);
    m_shell.setMenuEnabled(undoEntry, m_isUndoEnabled);
    m_savedMainStatus = m_shell.statusText();
    m_shell.setStatusText(m_ownStatus);
}

void ShellPresence::leave()
{
    if (!m_isActive)
        return;
    m_isActive = false;
    for (const QLatin1String name : menusHiddenWhenLeft)
        m_shell.setMenuVisible(name, false);
    for (const QLatin1String key : documentButtons)
        m_shell.setToolButtonEnabled(key, false);
    m_ownStatus = m_shell.statusText();
    m_shell.setStatusText(m_savedMainStatus);
}

void ShellPresence::showStatus(const QString &text)
{
    // An editor may change a document that is not the active one.
    if (m_isActive)
        m_shell.setStatusText(text);
    else
        m_ownStatus = text;
}

void ShellPresence::setUndoEnabled(bool isEnabled)
{
    m_isUndoEnabled = isEnabled;
    if (m_isActive)
        m_shell.setMenuEnabled(undoEntry, isEnabled);
}
