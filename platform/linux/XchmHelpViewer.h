#pragma once

#include "platform/HelpViewer.h"
#include "platform/linux/DriveMap.h"

class Programs;

/// The desktop's viewer of compiled help, xchm. It has no way to be started at its search; the user finds that beside
/// the contents.
class XchmHelpViewer final : public HelpViewer
{
public:
    /// @param drivesFolder the folder of drives, on which a file may be: see DriveMap
    XchmHelpViewer(Programs &programs, const QByteArray &drivesFolder);

    [[nodiscard]] bool hasFile(const QString &file) const override;
    void HtmlHelpA(const QString &file, Command command, quint32 topic) override;

private:
    /// The system's own path of a file that there is; empty when there is none.
    [[nodiscard]] QString find(const QString &file) const;

    Programs &m_programs;
    DriveMap m_drives;
    DriveMap m_root;
};
