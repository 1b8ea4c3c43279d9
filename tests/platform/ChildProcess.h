#pragma once

#include <QByteArray>

#include <functional>
#include <utility>

/// Work that a test does in a process of its own, because it gives up rights or mounts something. What the work expects
/// and does not find is printed there and fails the test here.
void inChild(const std::function<void()> &work);

/// In a child that is an ordinary user, also where the tests run as the administrator.
void asOrdinaryUser(const std::function<void()> &work);

/// In a child that may mount, and whose mounts nobody else sees.
void withOwnMounts(const std::function<void()> &work);

/// Runs work in a child that may end itself. @return its exit code, or -1 when a signal ended it
[[nodiscard]] int exitCodeOf(const std::function<void()> &work);

/// The user that the work of asOrdinaryUser() runs as.
[[nodiscard]] unsigned ordinaryUser();

[[nodiscard]] bool isAdministrator();

/// Makes path a thing that the ordinary user owns.
void giveToOrdinaryUser(const QByteArray &path);
