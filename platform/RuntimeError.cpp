#include "platform/RuntimeError.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace {

struct Row
{
    RuntimeError::Number number;
    QLatin1String description;
};

// clang-format off
constexpr std::array<Row, 9> errorTable {{
    {RuntimeError::InvalidCall,      QLatin1String("Invalid procedure call or argument")},
    {RuntimeError::Overflow,         QLatin1String("Overflow")},
    {RuntimeError::TypeMismatch,     QLatin1String("Type mismatch")},
    {RuntimeError::FileNotFound,     QLatin1String("File not found")},
    {RuntimeError::DeviceError,      QLatin1String("Device I/O error")},
    {RuntimeError::DiskFull,         QLatin1String("Disk full")},
    {RuntimeError::PermissionDenied, QLatin1String("Permission denied")},
    {RuntimeError::PathAccess,       QLatin1String("Path/File access error")},
    {RuntimeError::PathNotFound,     QLatin1String("Path not found")},
}};
// clang-format on

} // namespace

RuntimeError::RuntimeError(Number number, const QString &path, const QString &detail)
    : m_number(number)
    , m_path(path)
    , m_detail(detail)
{
}

RuntimeError RuntimeError::described(Number number, const QString &description)
{
    RuntimeError error(number);
    error.m_description = description;
    return error;
}

QString RuntimeError::description() const
{
    if (!m_description.isEmpty())
        return m_description;
    const auto row = std::find_if(errorTable.begin(), errorTable.end(),
                                  [this](const Row &candidate) { return candidate.number == m_number; });
    return row == errorTable.end() ? QString() : QString(row->description);
}

QString RuntimeError::message() const
{
    QStringList parts;
    parts << QStringLiteral("Run-time error '%1':").arg(m_number) << description();
    if (!m_detail.isEmpty())
        parts << m_detail;
    if (!m_path.isEmpty())
        parts << m_path;
    return parts.join(QStringLiteral("\n\n"));
}
