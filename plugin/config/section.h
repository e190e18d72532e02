#pragma once

#include "config/filenames.h"
#include "config/plainnumber.h"

#include <QDomElement>
#include <QXmlStreamWriter>

namespace VLT {

/// A number of a record and its attribute in the file. A negative number means "not set" and is not
/// written; a missing attribute is read as not set, an invalid number as 0.
template<class Record>
struct NumberAttribute
{
    QString name;
    float Record::*member;
};

/// The text of an attribute in memory of its own, close to that of its record. The document's text
/// lies scattered among its nodes; keeping it would also keep the memory pages around it after the
/// nodes are freed.
inline QString keptText(const QDomElement &element, const QString &attribute)
{
    const QString text = element.attribute(attribute);
    return QString(text.constData(), text.size());
}

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
void forEachChild(const QDomElement &section, const QString &name, Read read)
{
    for (QDomElement child = section.firstChildElement(name); !child.isNull();
         child = child.nextSiblingElement(name))
        read(child);
}

} // namespace VLT
