#pragma once

#include "platform/Accounts.h"

#include <QStringList>

#include <functional>

/// One of the enumerations of Accounts, for one server: reads the next batch and leaves in resumeHandle where the one
/// behind it begins.
using EnumerateBatch = std::function<quint32(Accounts::Batch &batch, quintptr &resumeHandle)>;

/// How large a batch should be at most, in bytes (prefmaxlen of NetUserEnum() and the others): a large server is read
/// in many small ones.
inline constexpr quint32 preferredBatchLength = 255;

/// All names that an enumeration gives, in its order. An error ends it with what has been read up to there. Every
/// buffer is released.
[[nodiscard]] QStringList enumerateNames(Accounts &accounts, const EnumerateBatch &enumerate);
