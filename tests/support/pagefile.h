#pragma once

#include "config/configurationfile.h"
#include "tables/page.h"

#include <QDomDocument>
#include <QXmlStreamWriter>
#include <QtTest>

/// Lets `page` read the sections in `xml`.
inline void readSections(VLT::Page *page, const QByteArray &xml)
{
    QDomDocument document;
    QVERIFY(document.setContent("<Config>" + xml + "</Config>"));
    QDomElement root = document.documentElement();
    page->readData(&root);
}

/// The sections that `page` writes. The test fails when the page does not hand out the same
/// configuration, or when that does not survive being read.
inline QByteArray writtenSections(const VLT::Page &page)
{
    QByteArray xml;
    QXmlStreamWriter writer(&xml);
    page.writeData(&writer);

    QByteArray file;
    QByteArray again;
    QString offender;
    VLT::ReadReport report;
    VLT::Configuration configuration;
    page.collect(&configuration);
    const auto write = [&page](QXmlStreamWriter *composer) { page.writeData(composer); };
    if (!VLT::composeFile(write, &file))
        return xml;
    if (!VLT::writeConfiguration(configuration, &again, &offender) || again != file)
        qFatal("The page writes\n%s\nand hands out\n%s", file.constData(), again.constData());
    if (!VLT::writeConfiguration(VLT::readConfiguration(file, &report), &again, &offender) ||
        again != file)
        qFatal("The page writes\n%s\nwhich reads as\n%s", file.constData(), again.constData());
    return xml;
}
