#pragma once

#include "platform/FileAccess.h"
#include "platform/windows/WindowsCalls.h"

#include <memory>
#include <optional>

class WindowsPath;

/// Files through the Windows interface.
///
/// A file is replaced by a new one of the same owner that is written beside it and takes over the old one's access
/// list, attributes, further streams and creation time (ReplaceFile). Where that is not possible (the folder may not be
/// written, the file has further names or belongs to somebody else, the system refuses) it is written in place, with a
/// copy kept until the write is known to be good.
class WindowsFileAccess final : public FileAccess
{
public:
    /// @param recoveryFolder where copies are kept while a file is written in place
    WindowsFileAccess(std::unique_ptr<WindowsCalls> calls, const QString &recoveryFolder);

    [[nodiscard]] bool fileExists(const QString &path) const override;
    void readFile(const QString &path, const TakeBytes &take) override;
    void writeFile(const QString &path, QByteArrayView bytes) override;

private:
    [[nodiscard]] bool isFolder(const WindowsPath &path) const;
    /// The file that a link leads to; nothing where the system does not tell.
    [[nodiscard]] std::optional<WindowsPath> followLink(const WindowsPath &path) const;
    void finishReplacement(const WindowsPath &target);
    void createFile(const WindowsPath &target, QByteArrayView bytes);
    void createDirectly(const WindowsPath &target, QByteArrayView bytes);
    [[nodiscard]] bool replaceFile(const WindowsPath &target, QByteArrayView bytes,
                                   const BY_HANDLE_FILE_INFORMATION &old);
    void writeInPlace(const WindowsPath &target, QByteArrayView bytes);
    /// Owner, group and access list; empty where they cannot be read.
    [[nodiscard]] QByteArray securityOf(const WindowsPath &path) const;

    std::unique_ptr<WindowsCalls> m_calls;
    QString m_recoveryFolder;
};
