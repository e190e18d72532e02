#include "core/project.h"

#include "host/core/projectfile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <algorithm>

namespace Core {

namespace {

const QLatin1String NAME("name");
const QLatin1String DEVICE("device");
const QLatin1String SOURCES("sources");
const QLatin1String FILES("files");
const QLatin1String SYNTHESIS("synthesis");
const QLatin1String PROGRAM("program");
const QLatin1String ARGUMENTS("arguments");
const QLatin1String RESULTS("results");

bool isText(const QJsonValue &value)
{
    return value.isUndefined() || value.isString();
}

bool isTextList(const QJsonValue &value)
{
    if (value.isUndefined())
        return true;
    if (!value.isArray())
        return false;
    const QJsonArray list = value.toArray();
    return std::all_of(list.begin(), list.end(), [](const QJsonValue &v) { return v.isString(); });
}

/// The name of the first member that is not of the kind that it has to be; empty when all are.
QString wrongMember(const QJsonObject &data)
{
    for (QLatin1String member : {NAME, DEVICE}) {
        if (!isText(data[member]))
            return member;
    }
    for (QLatin1String member : {SOURCES, FILES}) {
        if (!isTextList(data[member]))
            return member;
    }
    for (QLatin1String member : {SYNTHESIS, RESULTS}) {
        if (!data[member].isUndefined() && !data[member].isObject())
            return member;
    }
    const QJsonObject synthesis = data[SYNTHESIS].toObject();
    if (!isText(synthesis[PROGRAM]) || !isTextList(synthesis[ARGUMENTS]))
        return SYNTHESIS;
    const QJsonObject results = data[RESULTS].toObject();
    for (const QJsonValue &result : results) {
        if (!result.isString())
            return RESULTS;
    }
    return QString();
}

} // namespace

Project::Project(ProjectFile *d)
    : d(d)
{
}

Project::~Project()
{
    delete d;
}

void Project::addFile(const QString &path)
{
    d->addFile(path);
}

ProjectFile::ProjectFile(const QString &path, const QJsonObject &data)
    : m_path(path)
    , m_data(data)
{
}

std::unique_ptr<Project> ProjectFile::load(const QString &path, QString *error)
{
    const auto fail = [&](const QString &cause) {
        if (error)
            *error =
                tr("Cannot open the project %1: %2").arg(QDir::toNativeSeparators(path), cause);
        return nullptr;
    };
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.errorString());
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return fail(tr("it is not JSON (at byte %1: %2).")
                        .arg(QString::number(parseError.offset), parseError.errorString()));
    if (!document.isObject())
        return fail(tr("it does not hold an object."));
    const QString wrong = wrongMember(document.object());
    if (!wrong.isEmpty())
        return fail(tr("its member \"%1\" is not as it should be.").arg(wrong));
    const QString absolute = QFileInfo(path).absoluteFilePath();
    return std::unique_ptr<Project>(new Project(new ProjectFile(absolute, document.object())));
}

ProjectFile *ProjectFile::of(const Project *project)
{
    return project ? project->d : nullptr;
}

QString ProjectFile::folder() const
{
    return QFileInfo(m_path).absolutePath();
}

QString ProjectFile::name() const
{
    const QString name = m_data[NAME].toString();
    return name.isEmpty() ? QFileInfo(m_path).completeBaseName() : name;
}

QString ProjectFile::device() const
{
    return m_data[DEVICE].toString();
}

void ProjectFile::setDevice(const QString &id)
{
    if (id == device())
        return;
    QJsonObject data = m_data;
    data[DEVICE] = id;
    update(data);
}

QStringList ProjectFile::sources() const
{
    return absolutePaths(SOURCES);
}

QStringList ProjectFile::files() const
{
    return absolutePaths(FILES);
}

void ProjectFile::addFile(const QString &path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    if (path.isEmpty() || files().contains(QDir::cleanPath(absolute)))
        return;
    QJsonObject data = m_data;
    QJsonArray list = data[FILES].toArray();
    list.append(QDir(folder()).relativeFilePath(absolute));
    data[FILES] = list;
    update(data);
    emit fileAdded(QDir::cleanPath(absolute));
}

void ProjectFile::removeFile(const QString &path)
{
    const int index = files().indexOf(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    if (index < 0)
        return;
    QJsonObject data = m_data;
    QJsonArray list = data[FILES].toArray();
    list.removeAt(index);
    data[FILES] = list;
    update(data);
}

QString ProjectFile::synthesisProgram() const
{
    return m_data[SYNTHESIS].toObject()[PROGRAM].toString();
}

QStringList ProjectFile::synthesisArguments() const
{
    return m_data[SYNTHESIS].toObject()[ARGUMENTS].toVariant().toStringList();
}

QString ProjectFile::resultFile(const QString &key) const
{
    return absolutePath(m_data[RESULTS].toObject()[key].toString());
}

QStringList ProjectFile::resultFiles() const
{
    QStringList paths;
    const QJsonObject results = m_data[RESULTS].toObject();
    for (const QJsonValue &result : results)
        paths.append(absolutePath(result.toString()));
    return paths;
}

bool ProjectFile::save(QString *error) const
{
    QSaveFile file(m_path);
    const QByteArray bytes = QJsonDocument(m_data).toJson();
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    if (error)
        *error = tr("Cannot save the project %1: %2")
                     .arg(QDir::toNativeSeparators(m_path), file.errorString());
    return false;
}

QStringList ProjectFile::absolutePaths(const QString &member) const
{
    QStringList paths;
    const QJsonArray list = m_data[member].toArray();
    for (const QJsonValue &value : list)
        paths.append(absolutePath(value.toString()));
    return paths;
}

QString ProjectFile::absolutePath(const QString &path) const
{
    return path.isEmpty() ? QString() : QDir::cleanPath(QDir(folder()).absoluteFilePath(path));
}

void ProjectFile::update(const QJsonObject &data)
{
    m_data = data;
    QString error;
    if (!save(&error))
        emit saveFailed(error);
    emit changed();
}

} // namespace Core
