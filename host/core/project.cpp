#include "core/project.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/utils/documentpath.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <algorithm>
#include <functional>

namespace Core {

namespace {

const QLatin1String NAME("name");
const QLatin1String DEVICE("device");
const QLatin1String TOP("top");
const QLatin1String SOURCES("sources");
const QLatin1String FILES("files");
const QLatin1String SYNTHESIS("synthesis");
const QLatin1String PROGRAM("program");
const QLatin1String ARGUMENTS("arguments");
const QLatin1String RESULTS("results");
const QLatin1String RECORD_NAMES("recordNames");
const QLatin1String ACTIVITY_SCOPES("activityScopes");

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

/// The name of the first member that has the wrong type; empty if there is none.
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

ProjectFile::ProjectFile(const QString &path, const QByteArray &text)
    : m_path(path)
    , m_text(text)
    , m_data(QJsonDocument::fromJson(text).object())
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
    const QByteArray text = file.readAll();
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return fail(tr("not JSON (at byte %1: %2).")
                        .arg(QString::number(parseError.offset), parseError.errorString()));
    if (!document.isObject())
        return fail(tr("the top level must be an object."));
    const QString wrong = wrongMember(document.object());
    if (!wrong.isEmpty())
        return fail(tr("\"%1\" has the wrong type.").arg(wrong));
    const QString absolute = Utils::documentPath(path);
    return std::unique_ptr<Project>(new Project(new ProjectFile(absolute, text)));
}

ProjectFile *ProjectFile::of(const Project *project)
{
    return project ? project->d : nullptr;
}

ProjectFile *ProjectFile::current()
{
    return of(ProjectSession::get()->current());
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

bool ProjectFile::create(const QString &path, const QString &name, QString *error)
{
    QFile file(path);
    const QByteArray text = JsonText::object({{NAME, name}, {RESULTS, QJsonObject()}}).text();
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        if (file.write(text) == text.size() && file.flush())
            return true;
        file.remove();
    }
    if (error)
        *error = tr("Cannot create the project %1: %2")
                     .arg(QDir::toNativeSeparators(path), file.errorString());
    return false;
}

void ProjectFile::setName(const QString &name)
{
    set({NAME}, name);
}

QString ProjectFile::device() const
{
    return m_data[DEVICE].toString();
}

void ProjectFile::setDevice(const QString &id)
{
    if (id == device())
        return;
    set({DEVICE}, id);
}

QString ProjectFile::top() const
{
    return m_data[TOP].toString();
}

void ProjectFile::setTop(const QString &module)
{
    if (module != top())
        set({TOP}, module.isEmpty() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(module));
}

QStringList ProjectFile::sources() const
{
    return absolutePaths(SOURCES);
}

QStringList ProjectFile::files() const
{
    return absolutePaths(FILES);
}

void ProjectFile::setSources(const QStringList &paths)
{
    QStringList present = sources();
    if (paths == present)
        return;
    for (int i = present.size() - 1; i >= 0; --i) {
        if (paths.contains(present.at(i)))
            continue;
        m_text.removeAt({SOURCES}, i);
        present.removeAt(i);
    }
    // If the remaining sources keep their order, only lines are added and removed.
    const auto isKept = [&present](const QString &path) { return present.contains(path); };
    QStringList kept = paths;
    kept.erase(std::remove_if(kept.begin(), kept.end(), std::not_fn(isKept)), kept.end());
    const bool anew = kept != present || present.isEmpty();
    if (anew) {
        QJsonArray list;
        for (const QString &path : paths)
            list.append(relativePath(path));
        m_text.set({SOURCES}, list);
    }
    for (int i = 0; !anew && i < paths.size(); ++i) {
        if (!present.contains(paths.at(i)))
            m_text.insert({SOURCES}, i, relativePath(paths.at(i)));
    }
    update();
}

void ProjectFile::addFile(const QString &path)
{
    const QString absolute = Utils::documentPath(path);
    if (path.isEmpty() || files().contains(absolute))
        return;
    m_text.add({FILES}, relativePath(absolute));
    update();
    emit fileAdded(absolute);
}

void ProjectFile::removeFile(const QString &path)
{
    const int index = files().indexOf(Utils::documentPath(path));
    if (index < 0)
        return;
    m_text.removeAt({FILES}, index);
    update();
}

QString ProjectFile::synthesisProgram() const
{
    return m_data[SYNTHESIS].toObject()[PROGRAM].toString();
}

QStringList ProjectFile::synthesisArguments() const
{
    return m_data[SYNTHESIS].toObject()[ARGUMENTS].toVariant().toStringList();
}

void ProjectFile::setSynthesis(const QString &program, const QStringList &arguments)
{
    if (program == synthesisProgram() && arguments == synthesisArguments())
        return;
    const QJsonValue none(QJsonValue::Undefined);
    changeTogether([&] {
        set({SYNTHESIS, PROGRAM}, program.isEmpty() ? none : QJsonValue(program));
        set({SYNTHESIS, ARGUMENTS},
            program.isEmpty() ? none : QJsonValue(QJsonArray::fromStringList(arguments)));
        if (m_data[SYNTHESIS].toObject().isEmpty())
            set({SYNTHESIS}, none);
    });
}

bool ProjectFile::recordsNames() const
{
    return m_data[RECORD_NAMES].toBool(true);
}

void ProjectFile::setRecordsNames(bool records)
{
    if (records != recordsNames())
        set({RECORD_NAMES}, records);
}

QHash<QPair<QString, QString>, QString> ProjectFile::activityScopes() const
{
    QHash<QPair<QString, QString>, QString> scopes;
    const QJsonObject files = m_data[ACTIVITY_SCOPES].toObject();
    for (auto file = files.begin(); file != files.end(); ++file) {
        const QJsonObject instances = file->toObject();
        for (auto instance = instances.begin(); instance != instances.end(); ++instance) {
            if (instance->isString())
                scopes.insert({absolutePath(file.key()), instance.key()}, instance->toString());
        }
    }
    return scopes;
}

void ProjectFile::addActivityScopes(const QHash<QPair<QString, QString>, QString> &scopes)
{
    const auto isFree = [](const QJsonValue &value) {
        return value.isUndefined() || value.isObject(); // else somebody else's
    };
    const QJsonValue present = m_data.value(ACTIVITY_SCOPES);
    auto places = scopes.keys();
    std::sort(places.begin(), places.end()); // the same text for the same scopes
    changeTogether([&] {
        for (const auto &place : qAsConst(places)) {
            const QString file = relativePath(place.first);
            if (isFree(present) && isFree(present.toObject().value(file)))
                set({ACTIVITY_SCOPES, file, place.second}, scopes.value(place));
        }
    });
}

QString ProjectFile::resultFile(const QString &key) const
{
    return absolutePath(m_data[RESULTS].toObject()[key].toString());
}

void ProjectFile::setResultFile(const QString &key, const QString &path)
{
    if (path != resultFile(key)) {
        set({RESULTS, key},
            path.isEmpty() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(relativePath(path)));
    }
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
    const QByteArray &bytes = m_text.text();
    // Flushed first: commit() does not notice that what it has still to write does not fit.
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
        file.commit())
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

QString ProjectFile::relativePath(const QString &path) const
{
    return QDir(folder()).relativeFilePath(Utils::documentPath(path));
}

void ProjectFile::set(const QStringList &member, const QJsonValue &value)
{
    const QByteArray before = m_text.text();
    m_text.set(member, value);
    if (m_text.text() != before)
        update();
}

bool ProjectFile::changeTogether(const std::function<void()> &changes)
{
    if (m_together) {
        changes();
        return true;
    }
    const QByteArray before = m_text.text();
    m_together = true;
    changes();
    m_together = false;
    return m_text.text() == before || update();
}

bool ProjectFile::update()
{
    m_data = QJsonDocument::fromJson(m_text.text()).object();
    if (m_together)
        return true;
    QString error;
    const bool saved = save(&error);
    if (!saved)
        emit saveFailed(error);
    emit changed();
    return saved;
}

} // namespace Core
