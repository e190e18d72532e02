#pragma once

#include "check/activity/activityfile.h"
#include "check/activity/designtree.h"
#include "check/names/designnames.h"

#include "support/netlistjson.h"

#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"

#include <QBuffer>

/// A netlist with its names, as the activity checks use it.
struct ActivityDesign
{
    explicit ActivityDesign(const NetlistJson &json)
    {
        NlsData::ReadOptions options;
        options.allNames = true;
        QString error;
        netlist = NlsData::readNetlistText(json.toUtf8().toStdString(), QStringLiteral("test"),
                                           &error, options);
        if (!netlist)
            qFatal("%s", qPrintable(error));
        names = std::make_shared<Check::DesignNames>(*netlist);
        tree = std::make_unique<Check::DesignTree>(*netlist, names->nets());
    }
    std::shared_ptr<NlsData::Netlist> netlist;
    std::shared_ptr<Check::DesignNames> names;
    std::unique_ptr<Check::DesignTree> tree;
};

inline std::shared_ptr<const Check::ActivityFile> activityFile(QByteArray bytes,
                                                               bool counts = false)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return Check::readActivity(&buffer, QStringLiteral("file"), counts);
}
