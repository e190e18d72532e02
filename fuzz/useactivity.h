#pragma once

#include "check/activity/scoperanking.h"
#include "check/activity/togglecounter.h"
#include "check/names/designnames.h"
#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"

#include <QBuffer>

#include <cstdlib>

/// Reads any bytes as an activity file of the kind, and uses all of what comes out.
inline int useActivity(const uint8_t *data, size_t size, Check::FileKind kind)
{
    static const std::unique_ptr<NlsData::Netlist> netlist = [] {
        NlsData::ReadOptions options;
        options.allNames = true;
        return NlsData::readNetlistText(
            R"({"modules": {"top": {"attributes": {"top": "1"}, "ports": {},
                "cells": {"u": {"type": "core", "connections": {"a": [2]}}},
                "netnames": {"a": {"bits": [2]}, "b": {"bits": [3, 4], "offset": -1},
                             "u.c": {"bits": [5]}, "m[0]": {"bits": [6, 7]}}},
              "core": {"ports": {"a": {"direction": "input", "bits": [2]}}, "cells": {},
                "netnames": {"a": {"bits": [2]}, "d": {"bits": [3, 4], "upto": 1}}}}})",
            QStringLiteral("design"), nullptr, options);
    }();
    static const Check::DesignNames names(*netlist);
    static const Check::DesignTree design(*netlist, names.nets());

    QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const auto file = Check::readActivity(&buffer, QStringLiteral("input"), true);
    if (!file->isUsable())
        return 0;
    if (file->kind != kind)
        return -1; // not for this fuzzer
    if (file->cutAt > qint64(size) || file->valuesAt > qint64(size))
        std::abort();
    if (file->hasSpan && kind == Check::FileKind::Vcd && file->first > file->last)
        std::abort();
    const Check::Declarations &declarations = file->declarations;
    if (declarations.bits() > 100000)
        return 0;
    int used = 0;
    for (quint32 i = 0; i < declarations.variables().size(); ++i)
        used += declarations.variablePath(i).size();
    const Check::ScopeRanking ranking = rankScopes(*file, design);
    for (const Check::ScopeCandidate &candidate : ranking.candidates) {
        for (const Check::NetKind net : Check::ALL_NET_KINDS) {
            if (candidate.counts.covered[size_t(net)] > candidate.counts.nets[size_t(net)])
                std::abort();
        }
    }
    buffer.seek(file->valuesAt);
    const Check::ToggleCounts counts =
        countToggles(&buffer, *file, std::vector<bool>(declarations.signalCount(), true), {});
    for (quint32 signal = 0; signal < declarations.signalCount(); ++signal) {
        for (quint32 place = 0; place < declarations.widthOf(signal); ++place)
            used += counts.bit(signal, place)->toggles > 0;
    }
    return used < 0 ? -1 : 0;
}
