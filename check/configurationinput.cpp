#include "check/configurationinput.h"

#include "host/utils/sha256.h"

#include <QFile>
#include <QFileInfo>

namespace Check {

ConfigurationInput readConfigurationInput(const QString &path)
{
    ConfigurationInput input;
    input.path = path;
    QFile file(path);
    if (!QFileInfo(path).isFile())
        input.error = QFileInfo::exists(path) ? QStringLiteral("not a regular file")
                                              : QStringLiteral("the file does not exist");
    else if (!file.open(QIODevice::ReadOnly))
        input.error = file.errorString();
    if (!input.error.isEmpty())
        return input;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        input.error = file.errorString();
        return input;
    }
    input = configurationInput(path, bytes);
    input.names.read(path, &input.namesError);
    return input;
}

ConfigurationInput configurationInput(const QString &path, const QByteArray &bytes)
{
    ConfigurationInput input;
    input.path = path;
    input.readable = true;
    input.bytes = bytes;
    input.sha256 = Utils::Sha256::of({bytes.constData(), size_t(bytes.size())});
    input.configuration = VLT::readConfiguration(bytes, &input.report);
    return input;
}

} // namespace Check
