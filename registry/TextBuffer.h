#pragma once

#include "platform/Registry.h"

#include <QByteArray>
#include <QString>

#include <array>

/// The buffer that a key's name is handed over in: 1024 bytes and a zero.
using FixedBuffer = std::array<char, 1025>;

/// text in a fixed buffer, which is zero behind it: in the registry's code page, or as 16-bit characters (low byte
/// first) where that is the registry's width. What is longer than the buffer is cut off.
[[nodiscard]] FixedBuffer TextToFixedBuffer(const QString &text, const Registry &registry);

/// The text in a buffer of 16-bit characters, low byte first, up to the first that is zero. While the width is narrow,
/// the buffer is text already and comes back as it is, a character a byte.
[[nodiscard]] QString WideBufferToText(const QByteArray &buffer, Registry::CharacterWidth width);
