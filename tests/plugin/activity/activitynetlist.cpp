#include "activitynetlist.h"

#include "support/netlistjson.h"

#include "nlsdata/netlistreader.h"

#include <QTemporaryDir>

NlsData::Netlist *activityNetlist()
{
    NetlistJson json;
    json.module("cpu").port("clk", "input", {2}).cell("reg_9", "FERN_DFF", {{"CLK", "input", {2}}});
    NetlistJson::Module &top = json.module("top").top();
    top.port("clk", "input", {2})
        .port("led", "output", {3, 4, 5, 6})
        .port("CPU_q", "output", {7})
        .port("loose", "output", {8})
        .port("bus", "inout", {9});
    const char *buffers[] = {"FERN_OBUF", "FERN_OBUF_DIFF", "FERN_OBUF_DRIVE", "FERN_OBUF"};
    for (int i = 0; i < 4; ++i)
        top.cell("buffer" + QByteArray::number(i), buffers[i], {{"O", "output", {3 + i}}});
    top.cell("CPU_reg", "FERN_DFFE", {{"Q", "output", {7}}})
        .cell("u_cpu", "cpu", {{"clk", "input", {2}}});
    const char *rams[] = {"FERN_ROM",       "FERN_SPRAM",      "FERN_SDPRAM",
                          "FERN_DPRAM",     "FERN_SDPRAM_ECC", "FERN_ROM_ECC",
                          "FERN_SDPRAM_XL", "FERN_DPRAM_XL",   "FERN_ROM_XL"};
    for (int i = 0; i < 9; ++i)
        top.cell("ram" + QByteArray::number(i), rams[i]);

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("netlist.json"));
    QString error;
    NlsData::Netlist *netlist =
        json.write(path) ? NlsData::readNetlistFile(path, &error, false) : nullptr;
    if (!netlist)
        qFatal("%s", qPrintable(error));
    return netlist;
}
