#pragma once

#include "platform/windows/WindowsFile.h"
#include "platform/windows/WindowsPath.h"

#include <optional>

/// A new file beside the one that it is going to replace. Until it is complete, the system removes it with its handle,
/// so that a process that is killed leaves nothing behind. A draft that does not get to its place is removed.
class WindowsDraft final
{
public:
    /// @param target the file whose place it is to take; it need not exist
    /// @param security the draft's owner and who may open it; null for what the folder says
    /// @param attributes of the draft
    /// @return nothing where no such file can be made in the folder because that is not permitted
    /// @throws RuntimeError for every other failure
    [[nodiscard]] static std::optional<WindowsDraft> make(WindowsCalls &calls, const WindowsPath &target,
                                                          SECURITY_DESCRIPTOR *security,
                                                          DWORD attributes = FILE_ATTRIBUTE_NORMAL);

    WindowsDraft(WindowsDraft &&other) noexcept;
    WindowsDraft(const WindowsDraft &) = delete;
    WindowsDraft &operator=(const WindowsDraft &) = delete;
    WindowsDraft &operator=(WindowsDraft &&) = delete;
    ~WindowsDraft();

    [[nodiscard]] WindowsFile &file() { return m_file; }

    /// Puts the draft where nothing is yet. @return false where the system does not permit that
    /// @throws RuntimeError for every other failure
    [[nodiscard]] bool moveTo(const WindowsPath &target);

    /// Puts the draft in the place of target and gives it what belongs to target beside its bytes.
    /// @return false where the system does not do that; the target is then untouched
    /// @throws RuntimeError when the target has lost its name and does not get it back, with what it is called now
    [[nodiscard]] bool replace(const WindowsPath &target);

private:
    WindowsDraft(WindowsCalls &calls, WindowsFile &&file, const QString &name);
    void complete();

    WindowsCalls &m_calls;
    WindowsFile m_file;
    QString m_name;
    bool m_goesWithHandle;
};
