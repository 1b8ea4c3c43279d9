#include "platform/windows/HtmlHelpViewer.h"

#include "platform/RuntimeError.h"

#include <QFileInfo>
#include <qt_windows.h>

// Needs the types of the header above.
#include <htmlhelp.h>

namespace {

using HtmlHelpFunction = HWND(WINAPI *)(HWND, LPCSTR, UINT, DWORD_PTR);

HtmlHelpFunction functionOf(QLibrary &library)
{
    return reinterpret_cast<HtmlHelpFunction>(library.resolve("HtmlHelpA"));
}

static_assert(UINT(HelpViewer::Command::DisplayTableOfContents) == HH_DISPLAY_TOC);
static_assert(UINT(HelpViewer::Command::DisplaySearch) == HH_DISPLAY_SEARCH);
static_assert(UINT(HelpViewer::Command::HelpContext) == HH_HELP_CONTEXT);

} // namespace

HtmlHelpViewer::HtmlHelpViewer()
    : m_library(QStringLiteral("hhctrl.ocx"))
{
}

HtmlHelpViewer::~HtmlHelpViewer()
{
    if (!m_library.isLoaded())
        return;
    if (const HtmlHelpFunction htmlHelp = functionOf(m_library))
        htmlHelp(nullptr, nullptr, HH_CLOSE_ALL, 0);
}

bool HtmlHelpViewer::hasFile(const QString &file) const
{
    return QFileInfo(file).isFile();
}

void HtmlHelpViewer::HtmlHelpA(const QString &file, Command command, quint32 topic)
{
    if (!hasFile(file))
        throw RuntimeError::described(RuntimeError::FileNotFound, missingHelpFileText(file));
    const HtmlHelpFunction htmlHelp = functionOf(m_library);
    if (!htmlHelp)
        throw RuntimeError::described(RuntimeError::FileNotFound,
                                      QStringLiteral("Cannot find \"hhctrl.ocx\", which shows the help."));
    const QByteArray path = file.toLocal8Bit();
    if (command == Command::HelpContext &&
        htmlHelp(nullptr, path.constData(), UINT(Command::HelpContext), topic) != nullptr)
        return;
    if (command == Command::DisplaySearch) {
        // An empty query shows where to search and searches nothing.
        HH_FTS_QUERY query = {};
        query.cbStruct = sizeof query;
        htmlHelp(nullptr, path.constData(), UINT(Command::DisplaySearch), reinterpret_cast<DWORD_PTR>(&query));
        return;
    }
    htmlHelp(nullptr, path.constData(), UINT(Command::DisplayTableOfContents), 0);
}
