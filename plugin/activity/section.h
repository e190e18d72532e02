#pragma once

#include "document/filenames.h"
#include "document/plainnumber.h"

#include <QDomElement>
#include <QXmlStreamWriter>

namespace VLT {

/// A number of a record and the attribute that holds it in the file. A negative number is not set
/// and is not written; a missing attribute reads as not set, one that is no number as 0.
template<class Record>
struct NumberAttribute
{
    NumberAttribute(const char *name, float Record::*member)
        : name(QLatin1String(name))
        , member(member)
    {
    }

    const QString name; ///< made once: a file has it in every record
    float Record::*const member;
};

template<class Record, size_t count>
void readNumbers(const QDomElement &element, const NumberAttribute<Record> (&attributes)[count],
                 Record *record)
{
    for (const NumberAttribute<Record> &attribute : attributes)
        record->*attribute.member =
            floatFromText(element.attribute(attribute.name, QStringLiteral("-1")));
}

template<class Record, size_t count>
void writeNumbers(QXmlStreamWriter *writer, const NumberAttribute<Record> (&attributes)[count],
                  const Record &record)
{
    for (const NumberAttribute<Record> &attribute : attributes) {
        const float number = record.*attribute.member;
        if (number >= 0)
            writer->writeAttribute(attribute.name, numberText(double(number)));
    }
}

/// Calls `read` with every child element of `section` that is named `name`, in document order.
template<class Read>
void forEachChild(const QDomElement &section, const char *name, Read read)
{
    const QString tag = QLatin1String(name);
    for (QDomElement child = section.firstChildElement(tag); !child.isNull();
         child = child.nextSiblingElement(tag))
        read(child);
}

} // namespace VLT
