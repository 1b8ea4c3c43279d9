#include "platform/UnfinishedContent.h"

#include <algorithm>

namespace {

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

QByteArray UnfinishedContent::heading(const QByteArray &path, qsizetype before, qsizetype after)
{
    QByteArray heading;
    for (const QByteArray &text :
         {firstText.toByteArray(), path, QByteArray::number(before), QByteArray::number(after)})
        (heading += text) += '\0';
    return heading;
}

std::optional<UnfinishedContent> UnfinishedContent::fromCopy(QByteArray bytes)
{
    const auto first = takeText(bytes);
    const auto path = takeText(bytes);
    const auto sizeBefore = takeText(bytes);
    const auto sizeAfter = takeText(bytes);
    if (first != firstText || !path || !sizeBefore || !sizeAfter)
        return std::nullopt;
    const qsizetype before = sizeBefore->toLongLong();
    const qsizetype after = sizeAfter->toLongLong();
    if (before < 0 || after < 0 || before + after != bytes.size())
        return std::nullopt;
    return UnfinishedContent{bytes.first(before), bytes.sliced(before)};
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

QString keptCopyText(const QString &pathOfCopy)
{
    return QStringLiteral("A copy is kept in \"%1\". The write is brought to its end when the file is opened here "
                          "again.")
        .arg(pathOfCopy);
}
