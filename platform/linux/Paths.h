#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The path without links and without "." and ".."; empty when there is nothing at it.
[[nodiscard]] QByteArray realPath(const QByteArray &path);

/// Whether path is folder or below it. Both are absolute and real.
[[nodiscard]] bool isWithin(QByteArrayView path, QByteArrayView folder);
