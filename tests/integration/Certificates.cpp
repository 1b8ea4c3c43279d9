#include "tests/integration/Certificates.h"

#include "tests/integration/linux/LocalPrograms.h"

#include <QDir>

Certificates::Certificates(const QString &folder)
    : m_folder(folder)
{
    QDir().mkpath(folder);
    run({"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-keyout",
         key("issuer"), "-out", issuer(), "-days", "30", "-subj", "/CN=Test issuer"});
}

void Certificates::make(const QString &name, const QString &names, int days) const
{
    writeFile(file(name + ".ext"), "subjectAltName=" + names.toUtf8() + "\n");
    run({"req", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-keyout", key(name), "-out",
         file(name + ".csr"), "-subj", "/CN=" + name});
    run({"x509", "-req", "-in", file(name + ".csr"), "-CA", issuer(), "-CAkey", key("issuer"), "-CAcreateserial",
         "-days", QString::number(days), "-extfile", file(name + ".ext"), "-out", certificate(name)});
}

void Certificates::makeSelfSigned(const QString &name, const QString &names) const
{
    run({"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-keyout", key(name),
         "-out", certificate(name), "-days", "30", "-subj", "/CN=" + name, "-addext", "subjectAltName=" + names});
}

void Certificates::run(const QStringList &arguments) const
{
    runProgram("openssl", arguments);
}
