#include "platform/windows/UnfinishedContent.h"

#include <algorithm>

namespace {

// A copy begins with texts, so that a person can tell what it is: this one, the file's path, the two sizes. The old
// bytes and the new bytes follow.
constexpr QByteArrayView firstText("ZentilConf: content of a file while it was written in place");

std::optional<QByteArray> takeText(QByteArray &bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    if (end < 0)
        return std::nullopt;
    const QByteArray text = bytes.first(end);
    bytes.remove(0, end + 1);
    return text;
}

} // namespace

QByteArray UnfinishedContent::toBytes() const
{
    QByteArray bytes;
    const auto addText = [&bytes](QByteArrayView text) { (bytes += text) += '\0'; };
    addText(firstText);
    addText(target);
    addText(QByteArray::number(before.size()));
    addText(QByteArray::number(after.size()));
    return bytes + before + after;
}

std::optional<UnfinishedContent> UnfinishedContent::fromBytes(QByteArray bytes)
{
    const auto first = takeText(bytes);
    const auto target = takeText(bytes);
    const auto sizeBefore = takeText(bytes);
    const auto sizeAfter = takeText(bytes);
    if (first != firstText || !target || !sizeBefore || !sizeAfter)
        return std::nullopt;
    const qsizetype before = sizeBefore->toLongLong();
    const qsizetype after = sizeAfter->toLongLong();
    if (before < 0 || after < 0 || before + after != bytes.size())
        return std::nullopt;
    return UnfinishedContent{*target, bytes.first(before), bytes.sliced(before)};
}

bool UnfinishedContent::isCutOff(const QByteArray &bytes) const
{
    const auto [shorter, longer] = std::minmax({before.size(), after.size()});
    if (bytes.size() < shorter || bytes.size() > longer || bytes == before || bytes == after)
        return false;
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        const bool isOld = at < before.size() ? bytes[at] == before[at] : bytes[at] == '\0';
        const bool isNew = at < after.size() && bytes[at] == after[at];
        if (!isOld && !isNew)
            return false;
    }
    return true;
}
