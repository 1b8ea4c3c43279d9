#include "platform/linux/FileAttributes.h"

#include <QByteArrayList>

#include <cerrno>
#include <optional>

namespace {

constexpr mode_t permissionBits = 07777;

std::optional<QByteArrayList> attributeNames(SystemCalls &calls, const FileHandle &file)
{
    const ssize_t size = calls.flistxattr(file.file(), nullptr, 0);
    if (size < 0)
        return errno == ENOTSUP ? std::optional(QByteArrayList()) : std::nullopt;
    QByteArray names(size, Qt::Uninitialized);
    const ssize_t filled = size == 0 ? 0 : calls.flistxattr(file.file(), names.data(), static_cast<size_t>(size));
    if (filled < 0)
        return std::nullopt;
    QByteArrayList list = names.first(filled).split('\0');
    list.removeAll({});
    return list;
}

std::optional<QByteArray> attribute(SystemCalls &calls, const FileHandle &file, const QByteArray &name)
{
    const ssize_t size = calls.fgetxattr(file.file(), name.constData(), nullptr, 0);
    if (size < 0)
        return std::nullopt;
    QByteArray value(size, Qt::Uninitialized);
    const ssize_t filled =
        size == 0 ? 0 : calls.fgetxattr(file.file(), name.constData(), value.data(), static_cast<size_t>(size));
    return filled == size ? std::optional(value) : std::nullopt;
}

bool carryExtendedAttributes(SystemCalls &calls, const FileHandle &from, const FileHandle &to)
{
    const auto wanted = attributeNames(calls, from);
    const auto present = attributeNames(calls, to);
    if (!wanted || !present)
        return false;
    for (const QByteArray &name : *wanted) {
        const auto value = attribute(calls, from, name);
        if (!value)
            return false;
        if (attribute(calls, to, name) == value)
            continue;
        if (calls.fsetxattr(to.file(), name.constData(), value->constData(), static_cast<size_t>(value->size())) != 0)
            return false;
    }
    // A folder's default access list gives a new file entries that the old one does not have.
    for (const QByteArray &name : *present) {
        if (!wanted->contains(name) && calls.fremovexattr(to.file(), name.constData()) != 0)
            return false;
    }
    return true;
}

} // namespace

bool carryAttributes(SystemCalls &calls, const FileHandle &from, const FileHandle &to)
{
    const struct stat wanted = from.status();
    const struct stat present = to.status();
    if (wanted.st_uid != present.st_uid || wanted.st_gid != present.st_gid) {
        if (calls.fchown(to.file(), wanted.st_uid, wanted.st_gid) != 0)
            return false;
    }
    // The mode comes last: a change of owner clears some of its bits, and the access list is behind its group bits.
    if (!carryExtendedAttributes(calls, from, to) || calls.fchmod(to.file(), wanted.st_mode & permissionBits) != 0)
        return false;
    const struct stat reached = to.status();
    return reached.st_uid == wanted.st_uid && reached.st_gid == wanted.st_gid && reached.st_mode == wanted.st_mode;
}
