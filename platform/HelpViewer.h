#pragma once

#include <QString>

/// What shows compiled help.
class HelpViewer
{
public:
    /// What of a help file is to be shown: the command's number in the manual ("HTML Help API Reference").
    enum class Command : quint32 {
        DisplayTableOfContents = 1,
        DisplaySearch = 3,
        /// The topic of a context number.
        HelpContext = 15,
    };

    HelpViewer() = default;
    HelpViewer(const HelpViewer &) = delete;
    HelpViewer &operator=(const HelpViewer &) = delete;
    virtual ~HelpViewer() = default;

    /// @param file as the product's registration has it, with "\" between names
    [[nodiscard]] virtual bool hasFile(const QString &file) const = 0;

    /// Shows a help file in a window of its own, which nobody owns.
    /// @param topic the context number; no meaning for other commands. One that the file does not know shows its begin
    /// @throws RuntimeError FileNotFound, with a description of what is missing: the file or its viewer
    virtual void HtmlHelpA(const QString &file, Command command, quint32 topic) = 0;
};

/// What a user is told of a help file that is not there.
[[nodiscard]] inline QString missingHelpFileText(const QString &file)
{
    return QStringLiteral("Cannot find file ") + file;
}
