#pragma once

#include "config/configuration.h"

#include <QList>

#include <functional>

class QDomElement;
class QXmlStreamWriter;

namespace VLT {

// One reader and one writer for each section of the file. Readers look for their section in the
// root element of the file and ignore everything else; writers write into the open root element.

/// Receives the records of a section in the file's order, each with its element.
template<class Record>
using RecordSink = std::function<void(Record &&record, const QDomElement &element)>;

/// Records to write, in either container; borrowed for the duration of the call.
template<class Record>
class Records
{
public:
    Records(const QVector<Record> &values) // NOLINT(google-explicit-constructor)
        : m_values(values.constData())
        , m_size(values.size())
    {
    }

    Records(const QList<Record *> &pointers) // NOLINT(google-explicit-constructor)
        : m_pointers(&pointers)
        , m_size(pointers.size())
    {
    }

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }

    const Record &operator[](int index) const
    {
        return m_pointers ? *m_pointers->at(index) : m_values[index];
    }

private:
    const Record *m_values = nullptr;
    const QList<Record *> *m_pointers = nullptr;
    int m_size;
};

Conditions readConditions(const QDomElement &root);
void writeConditions(QXmlStreamWriter *writer, const Conditions &conditions);

// The readers below return whether the file has the section, and change nothing if it has
// not.

bool readRates(const QDomElement &root, RateUnit *unit, const RecordSink<VLT_Rate> &add);
/// Writes nothing without records.
void writeRates(QXmlStreamWriter *writer, RateUnit unit, const Records<VLT_Rate> &rates);

bool readDefaultRates(const QDomElement &root, DefaultRates *rates);
void writeDefaultRates(QXmlStreamWriter *writer, const DefaultRates &rates);

bool readFiles(const QDomElement &root, std::optional<bool> *filterGlitch,
               const RecordSink<VLT_VcdFile> &add);
/// Writes nothing without records.
void writeFiles(QXmlStreamWriter *writer, const Records<VLT_VcdFile> &files, bool filterGlitch);

/// A section without `value` sets it to 0, not to the 100 of a new page.
bool readClocks(const QDomElement &root, double *value, const RecordSink<VLT_ClkEnable> &add);
/// Leaves out clocks without a name.
void writeClocks(QXmlStreamWriter *writer, double value, const Records<VLT_ClkEnable> &clocks);

bool readPorts(const QDomElement &root, const RecordSink<VLT_Port> &add);
/// Writes nothing without records.
void writePorts(QXmlStreamWriter *writer, const Records<VLT_Port> &ports);

bool readBSRams(const QDomElement &root, BSRamDefaults *defaults, const RecordSink<VLT_BSRam> &add);
/// Leaves out memories without a name.
void writeBSRams(QXmlStreamWriter *writer, const BSRamDefaults &defaults,
                 const Records<VLT_BSRam> &rams);

bool readDffs(const QDomElement &root, const RecordSink<VLT_Dff> &add);
void writeDffs(QXmlStreamWriter *writer, const Records<VLT_Dff> &dffs);

} // namespace VLT
