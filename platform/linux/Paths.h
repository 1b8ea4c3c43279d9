#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The path without links and without "." and ".."; empty when there is nothing at it.
[[nodiscard]] QByteArray realPath(const QByteArray &path);

/// A path whose folder is real; its last name stays as it is, a link, or one that is not there yet. Empty when its
/// folder is not there. @param path absolute
[[nodiscard]] QByteArray withRealFolder(const QByteArray &path);

/// Whether path is folder or below it. Both are absolute and real.
[[nodiscard]] bool isWithin(QByteArrayView path, QByteArrayView folder);
