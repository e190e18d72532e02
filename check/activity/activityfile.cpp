#include "check/activity/activityfile.h"

#include "check/activity/activityreaders.h"

#include <QFile>
#include <QFileInfo>

namespace Check {

namespace {

void read(QIODevice *device, bool counts, ActivityFile *file)
{
    file->kind = fileKind(device->read(BlockInput::BLOCK), &file->otherKind);
    device->seek(0);
    switch (file->kind) {
    case FileKind::Vcd:
        readVcdDefinitions(device, file);
        file->declarations.finish();
        readVcdSpan(device, file);
        break;
    case FileKind::Saif:
        readSaif(device, counts, file);
        file->declarations.finish();
        break;
    case FileKind::Other:
        file->error = QStringLiteral("it is %1").arg(file->otherKind);
    }
}

} // namespace

std::shared_ptr<const ActivityFile> readActivity(QIODevice *device, const QString &path,
                                                 bool counts)
{
    auto file = std::make_shared<ActivityFile>();
    file->path = path;
    try {
        read(device, counts, file.get());
    } catch (const ActivityError &error) {
        file->error = QStringLiteral("%1, at byte %2").arg(error.cause).arg(error.offset);
        file->declarations = Declarations();
        file->declarations.finish();
    }
    return file;
}

std::shared_ptr<const ActivityFile> readActivityFile(const QString &path, bool counts)
{
    auto file = std::make_shared<ActivityFile>();
    file->path = path;
    file->declarations.finish();
    QFile device(path);
    if (!QFileInfo(path).isFile())
        file->error = QFileInfo::exists(path) ? QStringLiteral("not a regular file")
                                              : QStringLiteral("the file does not exist");
    else if (!device.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        file->error = device.errorString();
    else
        return readActivity(&device, path, counts);
    return file;
}

} // namespace Check
