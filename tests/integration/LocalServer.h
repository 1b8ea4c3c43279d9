#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

/// A folder with files, and a server that works with them, on the Linux that the tests run on or that Wine runs on.
/// Whatever fails fails the test. With this object the server ends, and the folder is removed.
class LocalServer final
{
public:
    LocalServer();
    LocalServer(const LocalServer &) = delete;
    LocalServer &operator=(const LocalServer &) = delete;
    ~LocalServer();

    /// As the server's system says it.
    [[nodiscard]] QString folder() const;
    /// A port on which nobody listens.
    [[nodiscard]] int freePort();

    /// @param name of a file in the folder
    void write(const QString &name, const QByteArray &content);
    [[nodiscard]] QByteArray read(const QString &name) const;
    void makeFolder(const QString &name);

    /// Runs slapadd to its end.
    void load(const QStringList &arguments);
    /// Starts slapd, which says into the file "log" what it is asked, and waits until it listens at all of the ports.
    void start(const QStringList &arguments, const QList<int> &ports);
    /// Ends the server as with the power switch, if it runs.
    void kill();
    /// The server stands still until resume().
    void halt();
    void resume();

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};
