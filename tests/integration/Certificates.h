#pragma once

#include <QString>
#include <QStringList>

/// Certificates made for a test by an issuer of its own.
class Certificates final
{
public:
    explicit Certificates(const QString &folder);

    /// The issuer's certificate, for those who trust it.
    [[nodiscard]] QString issuer() const { return file("issuer.pem"); }

    /// Makes a certificate and its key. @param names as "DNS:localhost,IP:127.0.0.1" @param days how long it is valid
    ///     from now on; below 0 for one that has expired
    void make(const QString &name, const QString &names, int days = 30) const;
    /// One that is its own issuer.
    void makeSelfSigned(const QString &name, const QString &names) const;

    [[nodiscard]] QString certificate(const QString &name) const { return file(name + ".pem"); }
    [[nodiscard]] QString key(const QString &name) const { return file(name + ".key"); }

private:
    [[nodiscard]] QString file(const QString &name) const { return m_folder + '/' + name; }
    void run(const QStringList &arguments) const;

    QString m_folder;
};
