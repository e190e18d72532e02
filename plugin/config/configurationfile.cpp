#include "config/configurationfile.h"

#include "config/filenames.h"
#include "config/fileremarks.h"
#include "config/sections.h"

#include <QDomDocument>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace VLT {

namespace {

/// Why inspectFile() refused `bytes`.
void explainRefusal(const QByteArray &bytes, ReadReport *report)
{
    QXmlStreamReader reader(bytes);
    reader.setNamespaceProcessing(false);
    reader.setEntityExpansionLimit(0);
    QString docType;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::DTD)
            continue;
        docType = reader.dtdName().toString();
        if (!reader.entityDeclarations().isEmpty()) {
            report->error = QStringLiteral("the document type declares entities");
            report->errorLine = int(reader.lineNumber());
            return;
        }
    }
    if (docType != DOCTYPE_NAME && !(reader.hasError() && docType.isEmpty())) {
        report->error = QStringLiteral("the document type is not %1").arg(DOCTYPE_NAME);
    } else if (reader.hasError()) {
        report->error = reader.errorString();
        report->errorLine = int(reader.lineNumber());
    } else {
        report->error = QStringLiteral("its elements are nested too deeply");
    }
}

/// Appends records to a section, and their line numbers to a parallel list.
template<class Record>
RecordSink<Record> collect(QVector<Record> *records, QVector<int> *lines)
{
    return [records, lines](Record &&record, const QDomElement &element) {
        records->append(std::move(record));
        lines->append(element.lineNumber());
    };
}

Configuration readSections(const QDomElement &root, FileLines *lines)
{
    Configuration c;
    c.conditions = readConditions(root);
    c.rates.present = readRates(root, &c.rates.unit, collect(&c.rates.records, &lines->rates));
    readDefaultRates(root, &c.defaultRates);
    c.files.present =
        readFiles(root, &c.files.filterGlitch, collect(&c.files.records, &lines->files));
    c.clocks.present =
        readClocks(root, &c.clocks.value, collect(&c.clocks.records, &lines->clocks));
    c.ports.present = readPorts(root, collect(&c.ports.records, &lines->ports));
    c.bsrams.present =
        readBSRams(root, &c.bsrams.defaults, collect(&c.bsrams.records, &lines->bsrams));
    c.dffs.present = readDffs(root, collect(&c.dffs.records, &lines->dffs));
    return c;
}

void writeSections(QXmlStreamWriter *writer, const Configuration &c)
{
    writeConditions(writer, c.conditions);
    writeRates(writer, c.rates.unit, c.rates.records);
    if (c.defaultRates.present)
        writeDefaultRates(writer, c.defaultRates);
    writeFiles(writer, c.files.records, c.files.filterGlitch.value_or(false));
    if (c.clocks.present || !c.clocks.records.isEmpty())
        writeClocks(writer, c.clocks.value, c.clocks.records);
    writePorts(writer, c.ports.records);
    if (c.bsrams.present || !c.bsrams.records.isEmpty())
        writeBSRams(writer, c.bsrams.defaults, c.bsrams.records);
    if (c.dffs.present || !c.dffs.records.isEmpty())
        writeDffs(writer, c.dffs.records);
}

} // namespace

Configuration readConfiguration(const QByteArray &bytes, ReadReport *report)
{
    *report = ReadReport();
    QDomDocument document;
    report->content = parseFile(bytes, &document, &report->error, &report->errorLine);
    if (!report->isRead() && report->error.isEmpty())
        explainRefusal(bytes, report);
    if (report->content != VlrContent::Document)
        return {};
    const QDomElement root = document.documentElement();
    report->remarks = remarksOn(root, &report->lines.elements);
    return readSections(root, &report->lines);
}

bool writeConfiguration(const Configuration &configuration, QByteArray *bytes, QString *offender)
{
    const auto write = [&configuration](QXmlStreamWriter *writer) {
        writeSections(writer, configuration);
    };
    if (composeFile(write, bytes))
        return true;
    *offender = unwritableText(configuration).value_or(QString());
    return false;
}

} // namespace VLT
