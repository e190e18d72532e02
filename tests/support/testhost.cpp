#include "support/testhost.h"

#include "support/netlistjson.h"

#include "core/idecore.h"
#include "dev/devicedb.h"
#include "host/core/projectsession.h"
#include "host/core/viewarea.h"
#include "host/qutil/eventbus.h"
#include "host/te/deviceselection.h"
#include "host/te/flowcontrol.h"
#include "qutil/ievent.h"

#include <QtTest>

namespace {

constexpr char PROJECT[] = R"({
    "name": "test",
    "device": "%1",
    "sources": ["rtl/top.v"],
    "files": [],
    "synthesis": {"program": "sh", "arguments": ["synth.sh"]},
    "results": {"RES.netlist": "impl/netlist.json"}
}
)";

} // namespace

TestHost::TestHost(const QString &deviceId)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(path(QStringLiteral("home/data"))));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(path(QStringLiteral("home/config"))));
    for (QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat})
        QSettings::setPath(format, QSettings::UserScope, path(QStringLiteral("home/config")));
    if (QCoreApplication::organizationName().isEmpty())
        QCoreApplication::setOrganizationName(QStringLiteral("test"));

    useNetlist(defaultNetlist());
    const QString project =
        write(QStringLiteral("test.fpgaproj"), QString::fromLatin1(PROJECT).arg(deviceId).toUtf8());
    QString error;
    if (!Core::ProjectSession::get()->open(project, &error))
        qFatal("%s", qPrintable(error));
    TE::FlowControl::get()->setWatching(false);
}

TestHost::~TestHost()
{
    closeAll();
    Core::ProjectSession::get()->close();
}

QString TestHost::path(const QString &name) const
{
    return QDir(m_folder.path()).absoluteFilePath(name);
}

QString TestHost::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    QDir().mkpath(QFileInfo(file).absolutePath());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray TestHost::defaultNetlist()
{
    NetlistJson json;
    json.module("unit")
        .port("clk", "input", {2})
        .port("d", "input", {3})
        .port("q", "output", {4})
        .cell("state_reg", "$_DFF_P_",
              {{"C", "input", {2}}, {"D", "input", {3}}, {"Q", "output", {4}}});
    json.module("top")
        .top()
        .port("clk", "input", {2})
        .port("d", "input", {3, 4})
        .port("q", "output", {5, 6})
        .port("io", "inout", {7})
        .cell("q_reg0", "$_DFF_P_",
              {{"C", "input", {2}}, {"D", "input", {8}}, {"Q", "output", {5}}})
        .cell("q_reg1", "$_DFF_P_",
              {{"C", "input", {2}}, {"D", "input", {9}}, {"Q", "output", {6}}})
        .cell("store", "SB_RAM40_4K",
              {{"RCLK", "input", {2}}, {"WCLK", "input", {2}}, {"RDATA", "output", {9}}})
        .cell("core", "unit", {{"clk", "input", {2}}, {"d", "input", {3}}, {"q", "output", {8}}})
        .net("next", {8})
        .net("word", {9});
    return json.toUtf8();
}

QByteArray TestHost::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestHost::useNetlist(const QByteArray &yosysJson) const
{
    write(QStringLiteral("impl/netlist.json"), yosysJson);
}

QString TestHost::netlistPath() const
{
    return path(QStringLiteral("impl/netlist.json"));
}

DEV::DeviceArg TestHost::device() const
{
    const QString id = TE::DeviceSelection::get()->deviceID();
    const DEV::DeviceArg *device = Core::IdeCore::deviceDataBase()->findByID(id);
    return device ? *device : DEV::DeviceArg();
}

void TestHost::setDevice(const QString &id) const
{
    TE::DeviceSelection::get()->setDevice(id);
}

void TestHost::raise(const QString &type, const QVariantMap &values) const
{
    QUtil::EventBus::get()->deliver(QUtil::IEvent(type, values));
}

void TestHost::finishSynthesis() const
{
    raise(QStringLiteral("TE.Process.Status.Change"),
          {{QStringLiteral("process"), QStringLiteral("Process.Syn")},
           {QStringLiteral("status"), int(TE::FlowControl::Finished)}});
}

Core::ViewArea *TestHost::viewManager() const
{
    return Core::ViewArea::get();
}

void TestHost::closeAll() const
{
    viewManager()->discardAllViews();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
