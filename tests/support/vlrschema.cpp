#include "support/vlrschema.h"

#include <QProcess>

QByteArray schemaErrors(const QByteArray &file)
{
    QProcess xmllint;
    xmllint.setProcessChannelMode(QProcess::MergedChannels);
    xmllint.start(QStringLiteral("xmllint"),
                  {QStringLiteral("--noout"), QStringLiteral("--relaxng"),
                   QStringLiteral(VLR_SCHEMA), QStringLiteral("-")});
    xmllint.write(file);
    xmllint.closeWriteChannel();
    if (!xmllint.waitForFinished())
        return xmllint.errorString().toUtf8();
    return xmllint.exitCode() == 0 ? QByteArray() : xmllint.readAll();
}
