#pragma once

#include <QLatin1String>

#include <array>

/// The menus and the toolbar as data: one row an entry. Which of them do something is for the main window to say (its
/// table of commands); an entry without a command stays disabled.

struct MenuEntry
{
    /// The menu that the entry is in; empty for a menu of the menu bar.
    QLatin1String parent;
    /// Empty for a separator, unless the separator has a name.
    QLatin1String name;
    /// Empty for a separator.
    QLatin1String caption;
    QLatin1String icon;
    /// Portable key sequences, separated by "; ".
    QLatin1String shortcuts;
    bool isMenu = false;
};

struct ToolButton
{
    QLatin1String key;
    QLatin1String icon;
    QLatin1String toolTip;
    /// The menu entry whose command the button runs.
    QLatin1String command;
};

// clang-format off
inline constexpr std::array<MenuEntry, 47> menuEntries {{
    {{}, QLatin1String("mnuFile"), QLatin1String("&File"), {}, {}, true},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileNew"),     QLatin1String("&New"),        QLatin1String("document-new"),     QLatin1String("Ctrl+N")},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileOpen"),    QLatin1String("&Open..."),    QLatin1String("document-open"),    QLatin1String("Ctrl+O")},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileClose"),   QLatin1String("&Close"),      QLatin1String("window-close"),     QLatin1String("Ctrl+F4; Ctrl+W")},
    {QLatin1String("mnuFile"), {}, {}, {}, {}},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileSave"),    QLatin1String("&Save"),       QLatin1String("document-save"),    QLatin1String("Ctrl+S")},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileSaveAs"),  QLatin1String("Save &As..."), QLatin1String("document-save-as"), QLatin1String("Ctrl+Shift+S; F12")},
    {QLatin1String("mnuFile"), {}, {}, {}, {}},
    {QLatin1String("mnuFile"), QLatin1String("mnuFilePrint"),   QLatin1String("&Print..."),   QLatin1String("document-print"),   QLatin1String("Ctrl+P")},
    {QLatin1String("mnuFile"), {}, {}, {}, {}},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileExit"),    QLatin1String("E&xit"),       QLatin1String("application-exit"), QLatin1String("Ctrl+Q")},

    {{}, QLatin1String("mnuItem"), QLatin1String("&Item"), {}, {}, true},
    {QLatin1String("mnuItem"), QLatin1String("mnuItemNew"), QLatin1String("&New"), {}, {}, true},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewFile"),   QLatin1String("&File"),              {}, {}},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewReg"),    QLatin1String("&Registry"),          {}, {}},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewUser"),   QLatin1String("&User"),              {}, {}},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewGroup"),  QLatin1String("&Group"),             {}, {}},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewPolicy"), QLatin1String("Account &Policy"),    {}, {}},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewRight"),  QLatin1String("User Ri&ght"),        {}, {}},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewAudit"),  QLatin1String("&Audit Policy"),      {}, {}},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewLDAP"),   QLatin1String("&Directory Service"), {}, {}},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewLine"),   QLatin1String("&Line"),              {}, {}},
    {QLatin1String("mnuItemNew"), QLatin1String("mnuItemNewOther"),  QLatin1String("&Other"),             {}, {}},
    {QLatin1String("mnuItem"), QLatin1String("mnuItemEdit"), QLatin1String("&Edit"), {}, {}, true},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditFile"),   QLatin1String("&File"),              {}, {}},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditReg"),    QLatin1String("&Registry"),          {}, {}},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditUser"),   QLatin1String("&User"),              {}, {}},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditGroup"),  QLatin1String("&Group"),             {}, {}},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditRight"),  QLatin1String("User Ri&ght"),        {}, {}},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditPolicy"), QLatin1String("Account &Policy"),    {}, {}},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditAudit"),  QLatin1String("&Audit Policy"),      {}, {}},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditLDAP"),   QLatin1String("&Directory Service"), {}, {}},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditLine"),   QLatin1String("&Line"),              {}, {}},
    {QLatin1String("mnuItemEdit"), QLatin1String("mnuItemEditOther"),  QLatin1String("&Other"),             {}, {}},
    {QLatin1String("mnuItem"), QLatin1String("mnuItemText"), QLatin1String("Text"), {}, {}, true},
    {QLatin1String("mnuItemText"), QLatin1String("mnuItemTextComment"), QLatin1String("Un/comment"), QLatin1String("comment"), {}},
    {QLatin1String("mnuItem"), QLatin1String("mnuItemDelete"), QLatin1String("&Delete"), QLatin1String("edit-delete"), {}},
    {QLatin1String("mnuItem"), QLatin1String("mnuItemWizard"), QLatin1String("&Wizard"), {}, {}},

    {{}, QLatin1String("mnuEdit"), QLatin1String("&Edit"), {}, {}, true},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditUndo"),         QLatin1String("&Undo"),             QLatin1String("edit-undo"),  QLatin1String("Ctrl+Z")},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditBar0"),         {}, {}, {}},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditCut"),          QLatin1String("Cu&t"),              QLatin1String("edit-cut"),   QLatin1String("Ctrl+X")},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditCopy"),         QLatin1String("&Copy"),             QLatin1String("edit-copy"),  QLatin1String("Ctrl+C")},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditPaste"),        QLatin1String("&Paste"),            QLatin1String("edit-paste"), QLatin1String("Ctrl+V")},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditPasteSpecial"), QLatin1String("Paste &Special..."), {}, {}},

    {{}, QLatin1String("mnuWindow"), QLatin1String("&Window"), {}, {}, true},
    {QLatin1String("mnuWindow"), QLatin1String("mnuWindowFont"), QLatin1String("F&ont..."), QLatin1String("font"), {}},
}};

inline constexpr std::array<ToolButton, 7> toolButtons {{
    {QLatin1String("New"),   QLatin1String("document-new"),   QLatin1String("New"),   QLatin1String("mnuFileNew")},
    {QLatin1String("Open"),  QLatin1String("document-open"),  QLatin1String("Open"),  QLatin1String("mnuFileOpen")},
    {QLatin1String("Save"),  QLatin1String("document-save"),  QLatin1String("Save"),  QLatin1String("mnuFileSave")},
    {QLatin1String("Print"), QLatin1String("document-print"), QLatin1String("Print"), QLatin1String("mnuFilePrint")},
    {QLatin1String("Cut"),   QLatin1String("edit-cut"),       QLatin1String("Cut"),   QLatin1String("mnuEditCut")},
    {QLatin1String("Copy"),  QLatin1String("edit-copy"),      QLatin1String("Copy"),  QLatin1String("mnuEditCopy")},
    {QLatin1String("Paste"), QLatin1String("edit-paste"),     QLatin1String("Paste"), QLatin1String("mnuEditPaste")},
}};
// clang-format on
