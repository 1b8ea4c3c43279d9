#pragma once

#include <QLatin1String>

#include <array>

/// The menus and the toolbar as data: one row an entry. Which of them do something is for the main window to say (its
/// table of commands); an entry without a command stays disabled.

struct MenuEntry
{
    enum Type { Entry, Check, Menu, Separator };

    /// The menu that the entry is in; empty for a menu of the menu bar.
    QLatin1String parent;
    /// Empty for a separator that nobody asks for.
    QLatin1String name;
    /// An entry without a caption has nothing to show and is hidden.
    QLatin1String caption;
    QLatin1String icon;
    /// Portable key sequences, separated by "; ".
    QLatin1String shortcuts;
    Type type = Entry;
};

struct ToolButton
{
    /// Also its caption and its tool tip; empty for a separator.
    QLatin1String key;
    QLatin1String icon;
    /// The menu entry whose command the button runs, or its own key.
    QLatin1String command;
};

// clang-format off
inline constexpr std::array<MenuEntry, 80> menuEntries {{
    {{}, QLatin1String("mnuFile"), QLatin1String("&File"), {}, {}, MenuEntry::Menu},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileNew"),          QLatin1String("&New"),             QLatin1String("document-new"),           QLatin1String("Ctrl+N")},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileOpen"),         QLatin1String("&Open..."),         QLatin1String("document-open"),          QLatin1String("Ctrl+O")},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileClose"),        QLatin1String("&Close"),           QLatin1String("window-close"),           QLatin1String("Ctrl+F4; Ctrl+W")},
    {QLatin1String("mnuFile"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileSave"),         QLatin1String("&Save"),            QLatin1String("document-save"),          QLatin1String("Ctrl+S")},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileSaveAs"),       QLatin1String("Save &As..."),      QLatin1String("document-save-as"),       QLatin1String("Ctrl+Shift+S; F12")},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileSaveAll"),      QLatin1String("Save A&ll"),        {},                                      {}},
    {QLatin1String("mnuFile"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileProperties"),   QLatin1String("Propert&ies"),      {},                                      {}},
    {QLatin1String("mnuFile"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileAssoc"),        QLatin1String("Associa&te Files"), {},                                      {}},
    {QLatin1String("mnuFile"), QLatin1String("mnuFilePageSetup"),    QLatin1String("Page Set&up..."),   QLatin1String("document-page-setup"),    {}},
    {QLatin1String("mnuFile"), QLatin1String("mnuFilePrintPreview"), QLatin1String("Print Pre&view"),   QLatin1String("document-print-preview"), {}},
    {QLatin1String("mnuFile"), QLatin1String("mnuFilePrint"),        QLatin1String("&Print..."),        QLatin1String("document-print"),         QLatin1String("Ctrl+P")},
    {QLatin1String("mnuFile"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileSend"),         QLatin1String("Sen&d..."),         {},                                      {}},
    {QLatin1String("mnuFile"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileMRU_0"),        {},                                {},                                      {}},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileMRU_1"),        {},                                {},                                      {}},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileMRU_2"),        {},                                {},                                      {}},
    {QLatin1String("mnuFile"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuFile"), QLatin1String("mnuFileExit"),         QLatin1String("E&xit"),            QLatin1String("application-exit"),       QLatin1String("Ctrl+Q")},

    {{}, QLatin1String("mnuItem"), QLatin1String("&Item"), {}, {}, MenuEntry::Menu},
    {QLatin1String("mnuItem"), QLatin1String("mnuItemNew"), QLatin1String("&New"), {}, {}, MenuEntry::Menu},
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
    {QLatin1String("mnuItem"), QLatin1String("mnuItemEdit"), QLatin1String("&Edit"), {}, {}, MenuEntry::Menu},
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
    {QLatin1String("mnuItem"), QLatin1String("mnuItemText"), QLatin1String("Text"), {}, {}, MenuEntry::Menu},
    {QLatin1String("mnuItemText"), QLatin1String("mnuItemTextComment"), QLatin1String("Un/comment"), QLatin1String("comment"), QLatin1String("Ctrl+/")},
    {QLatin1String("mnuItem"), QLatin1String("mnuItemDelete"), QLatin1String("&Delete"), QLatin1String("edit-delete"), {}},
    {QLatin1String("mnuItem"), QLatin1String("mnuItemWizard"), QLatin1String("&Wizard"), {},                           {}},

    {{}, QLatin1String("mnuEdit"), QLatin1String("&Edit"), {}, {}, MenuEntry::Menu},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditUndo"),         QLatin1String("&Undo"),             QLatin1String("edit-undo"),  QLatin1String("Ctrl+Z; Alt+Backspace")},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditBar0"), {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditCut"),          QLatin1String("Cu&t"),              QLatin1String("edit-cut"),   QLatin1String("Ctrl+X; Shift+Del")},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditCopy"),         QLatin1String("&Copy"),             QLatin1String("edit-copy"),  QLatin1String("Ctrl+C; Ctrl+Ins")},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditPaste"),        QLatin1String("&Paste"),            QLatin1String("edit-paste"), QLatin1String("Ctrl+V; Shift+Ins")},
    {QLatin1String("mnuEdit"), QLatin1String("mnuEditPasteSpecial"), QLatin1String("Paste &Special..."), {},                          {}},

    {{}, QLatin1String("mnuOutput"), QLatin1String("&Output"), {}, {}, MenuEntry::Menu},

    {{}, QLatin1String("mnuView"), QLatin1String("&View"), {}, {}, MenuEntry::Menu},
    {QLatin1String("mnuView"), QLatin1String("mnuViewToolbar"),    QLatin1String("&Toolbar"),     {},                           {}, MenuEntry::Check},
    {QLatin1String("mnuView"), QLatin1String("mnuViewStatusBar"),  QLatin1String("Status &Bar"),  {},                           {}, MenuEntry::Check},
    {QLatin1String("mnuView"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuView"), QLatin1String("mnuViewOrient"),     QLatin1String("Orien&t"),      {},                           {}},
    {QLatin1String("mnuView"), QLatin1String("mnuViewRefresh"),    QLatin1String("&Refresh"),     {},                           {}},
    {QLatin1String("mnuView"), QLatin1String("mnuViewOptions"),    QLatin1String("&Options..."),  QLatin1String("preferences"), {}},
    {QLatin1String("mnuView"), QLatin1String("mnuViewWebBrowser"), QLatin1String("&Web Browser"), {},                           {}},

    {{}, QLatin1String("mnuWindow"), QLatin1String("&Window"), {}, {}, MenuEntry::Menu},
    {QLatin1String("mnuWindow"), QLatin1String("mnuWindowNewWindow"),      QLatin1String("&New Window"),      {},                    {}},
    {QLatin1String("mnuWindow"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuWindow"), QLatin1String("mnuWindowCascade"),        QLatin1String("&Cascade"),         {},                    {}},
    {QLatin1String("mnuWindow"), QLatin1String("mnuWindowTileHorizontal"), QLatin1String("Tile &Horizontal"), {},                    {}},
    {QLatin1String("mnuWindow"), QLatin1String("mnuWindowTileVertical"),   QLatin1String("Tile &Vertical"),   {},                    {}},
    {QLatin1String("mnuWindow"), QLatin1String("mnuWindowArrangeIcons"),   QLatin1String("&Arrange Icons"),   {},                    {}},
    {QLatin1String("mnuWindow"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuWindow"), QLatin1String("mnuWindowFont"),           QLatin1String("F&ont..."),         QLatin1String("font"), {}},

    {{}, QLatin1String("mnuHelp"), QLatin1String("&Help"), {}, {}, MenuEntry::Menu},
    {QLatin1String("mnuHelp"), QLatin1String("mnuHelpContents"),        QLatin1String("&Contents"),              QLatin1String("help-contents"), {}},
    {QLatin1String("mnuHelp"), QLatin1String("mnuHelpSearchForHelpOn"), QLatin1String("&Search For Help On..."), {},                             {}},
    {QLatin1String("mnuHelp"), {}, {}, {}, {}, MenuEntry::Separator},
    {QLatin1String("mnuHelp"), QLatin1String("mnuHelpAbout"),           QLatin1String("&About"),                 QLatin1String("help-about"),    {}},
}};

inline constexpr std::array<ToolButton, 17> toolButtons {{
    {QLatin1String("New"),         QLatin1String("document-new"),          QLatin1String("mnuFileNew")},
    {QLatin1String("Open"),        QLatin1String("document-open"),         QLatin1String("mnuFileOpen")},
    {QLatin1String("Save"),        QLatin1String("document-save"),         QLatin1String("mnuFileSave")},
    {{}, {}, {}},
    {QLatin1String("Print"),       QLatin1String("document-print"),        QLatin1String("mnuFilePrint")},
    {{}, {}, {}},
    {QLatin1String("Cut"),         QLatin1String("edit-cut"),              QLatin1String("mnuEditCut")},
    {QLatin1String("Copy"),        QLatin1String("edit-copy"),             QLatin1String("mnuEditCopy")},
    {QLatin1String("Paste"),       QLatin1String("edit-paste"),            QLatin1String("mnuEditPaste")},
    {{}, {}, {}},
    {QLatin1String("Bold"),        QLatin1String("format-text-bold"),      QLatin1String("Bold")},
    {QLatin1String("Italic"),      QLatin1String("format-text-italic"),    QLatin1String("Italic")},
    {QLatin1String("Underline"),   QLatin1String("format-text-underline"), QLatin1String("Underline")},
    {{}, {}, {}},
    {QLatin1String("Align Left"),  QLatin1String("format-justify-left"),   QLatin1String("Align Left")},
    {QLatin1String("Center"),      QLatin1String("format-justify-center"), QLatin1String("Center")},
    {QLatin1String("Align Right"), QLatin1String("format-justify-right"),  QLatin1String("Align Right")},
}};
// clang-format on
