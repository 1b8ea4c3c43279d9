#include "config/ShellPresence.h"

#include "config/DocumentShell.h"

#include <array>

namespace {

const QLatin1String undoEntry("mnuEditUndo");

/// A menu or menu entry of the main window that belongs to the active document.
struct DocumentMenu
{
    QLatin1String name;
    /// Whether it is shown while a document is active, and hidden when the document is left. The entries that are not
    /// hidden are those of the Edit menu, which go with their menu.
    bool isShown;
    bool isHiddenWhenLeft;
};

// clang-format off
constexpr std::array<DocumentMenu, 9> documentMenus {{
    {QLatin1String("mnuItem"),             true,  true},
    {QLatin1String("mnuFilePrint"),        true,  true},
    {QLatin1String("mnuEdit"),             true,  true},
    {QLatin1String("mnuEditUndo"),         true,  true},
    {QLatin1String("mnuEditBar0"),         true,  true},
    {QLatin1String("mnuEditCopy"),         true,  false},
    {QLatin1String("mnuEditCut"),          true,  false},
    {QLatin1String("mnuEditPaste"),        true,  false},
    {QLatin1String("mnuEditPasteSpecial"), false, false},
}};

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
    for (const DocumentMenu &menu : documentMenus)
        m_shell.setMenuVisible(menu.name, menu.isShown);
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
    for (const DocumentMenu &menu : documentMenus) {
        if (menu.isHiddenWhenLeft)
            m_shell.setMenuVisible(menu.name, false);
    }
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
