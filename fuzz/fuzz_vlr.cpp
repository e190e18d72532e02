#include "config/configurationfile.h"
#include "config/filenames.h"
#include "config/plainnumber.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

using namespace VLT;

namespace {

/// Without white space, which parsers treat differently.
QString bare(QString text)
{
    static const QRegularExpression space(QStringLiteral("\\s"));
    return text.remove(space);
}

/// The names of the records in the first section called `section`, taken from the file without the
/// help of a DOM.
QStringList namesInFile(const QByteArray &bytes, const QString &section, const QString &node)
{
    QStringList names;
    QXmlStreamReader reader(bytes);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    int seen = 0; // sections that have begun
    bool inside = false;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            ++depth;
            if (depth == 2)
                inside = reader.qualifiedName() == section && ++seen == 1;
            if (depth == 3 && inside && reader.qualifiedName() == node)
                names.append(bare(reader.attributes().value(ATTR_NAME).toString()));
        } else if (reader.isEndElement()) {
            --depth;
        }
    }
    return names;
}

template<class Record>
QStringList namesOf(const QVector<Record> &records)
{
    QStringList names;
    for (const Record &record : records)
        names.append(bare(nameOf(record)));
    return names;
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void requireAllRecords(const QByteArray &bytes, const Configuration &c)
{
    require(namesOf(c.rates.records) == namesInFile(bytes, NODE_NET_RATE, NODE_NET));
    require(namesOf(c.files.records) == namesInFile(bytes, NODE_SIMU_FILE, NODE_FILE));
    require(namesOf(c.clocks.records) == namesInFile(bytes, NODE_GLOBAL_ENABLE, NODE_CLOCK));
    require(namesOf(c.ports.records) == namesInFile(bytes, NODE_PORT_OUT_ENABLE, NODE_PORT));
    require(namesOf(c.bsrams.records) == namesInFile(bytes, NODE_BSRAM_ENABLE, NODE_BSRAM));
    require(namesOf(c.dffs.records) == namesInFile(bytes, NODE_LOCAL_ENABLE, NODE_INSTANCE));
}

void roundAsWritten(float *number)
{
    *number = *number < 0 ? -1.0F : floatFromText(numberText(double(*number)));
}

void roundAsWritten(double *number)
{
    *number = numberFromText(numberText(*number));
}

void roundAsWritten(std::optional<double> *number)
{
    if (*number)
        roundAsWritten(&**number);
}

void roundAsWritten(std::optional<Theta> *theta)
{
    if (*theta && (*theta)->given)
        roundAsWritten(&(*theta)->value);
}

void roundAsWritten(std::optional<DefaultRate> *rate)
{
    if (*rate)
        (*rate)->value = numberFromText(QString::number((*rate)->value, 'f', 2));
}

template<class Record>
void dropUnnamed(QVector<Record> *records)
{
    records->erase(std::remove_if(records->begin(), records->end(),
                                  [](const Record &record) { return record.name.isEmpty(); }),
                   records->end());
}

/// What a file can hold of a configuration: rounded numbers, without records that are not written.
Configuration asWritten(Configuration c)
{
    Conditions &conditions = c.conditions;
    for (auto *number : {&conditions.junctionTemp, &conditions.ambientTemp, &conditions.vcc,
                         &conditions.vccx, &conditions.vccLdo, &conditions.boardTemp})
        roundAsWritten(number);
    for (auto *theta : {&conditions.thetaJA, &conditions.thetaSA, &conditions.thetaJB})
        roundAsWritten(theta);
    c.rates.present = !c.rates.records.isEmpty();
    if (!c.rates.present)
        c.rates.unit = RateUnit::Toggle;
    roundAsWritten(&c.defaultRates.io);
    roundAsWritten(&c.defaultRates.remaining);
    c.files.present = !c.files.records.isEmpty();
    c.files.filterGlitch =
        c.files.present ? std::make_optional(c.files.filterGlitch.value_or(false)) : std::nullopt;
    for (VLT_VcdFile &file : c.files.records) {
        if (file.startTime.isEmpty() && file.endTime.isEmpty())
            file.timeUnit.clear();
    }
    roundAsWritten(&c.clocks.value);
    dropUnnamed(&c.clocks.records);
    for (VLT_ClkEnable &clock : c.clocks.records) {
        for (float *number :
             {&clock.enable, &clock.quad1, &clock.quad2, &clock.quad3, &clock.quad4})
            roundAsWritten(number);
    }
    c.ports.present = !c.ports.records.isEmpty();
    for (VLT_Port &port : c.ports.records) {
        roundAsWritten(&port.outEnable);
        roundAsWritten(&port.capacity);
    }
    for (double *number : {&c.bsrams.defaults.clockEnable, &c.bsrams.defaults.readProbability,
                           &c.bsrams.defaults.writeProbability})
        roundAsWritten(number);
    dropUnnamed(&c.bsrams.records);
    for (VLT_BSRam &ram : c.bsrams.records) {
        for (float *number :
             {&ram.aEnable, &ram.bEnable, &ram.aRead, &ram.bRead, &ram.aWrite, &ram.bWrite})
            roundAsWritten(number);
    }
    for (VLT_Dff &dff : c.dffs.records)
        roundAsWritten(&dff.value);
    return c;
}

QByteArray written(const Configuration &configuration)
{
    QByteArray bytes;
    QString offender;
    require(writeConfiguration(configuration, &bytes, &offender)); // what could be read
    return bytes;
}

} // namespace

/// Reads any bytes as a configuration file. What is accepted must be read whole, and must come back
/// when it is written and read again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    ReadReport report;
    const Configuration read = readConfiguration(bytes, &report);
    require(report.isRead() == report.error.isEmpty());
    if (!report.isRead())
        return 0;
    requireAllRecords(bytes, read);
    require(report.lines.dffs.size() == read.dffs.records.size());
    const QByteArray saved = written(read);
    ReadReport again;
    const Configuration second = readConfiguration(saved, &again);
    require(again.isRead() && second == asWritten(read));
    require(written(second) == saved);
    return 0;
}
