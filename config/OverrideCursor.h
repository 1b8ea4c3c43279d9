#pragma once

#include <QGuiApplication>

/// Shows a cursor over the whole program for as long as this object lives.
class OverrideCursor final
{
public:
    explicit OverrideCursor(Qt::CursorShape shape) { QGuiApplication::setOverrideCursor(shape); }
    OverrideCursor(const OverrideCursor &) = delete;
    OverrideCursor &operator=(const OverrideCursor &) = delete;
    ~OverrideCursor() { QGuiApplication::restoreOverrideCursor(); }
};
