#pragma once

class QDomElement;
class QXmlStreamWriter;

namespace VLT {

struct Configuration;

/// A part of the document with its own sections in the file: a page or a group of pages.
class Page
{
public:
    /// Reads its sections from `parent`, the root element of a file, and ignores the others.
    virtual void readData(QDomElement *parent) = 0;

    /// Writes its sections, in the file's order, into the open root element.
    virtual void writeData(QXmlStreamWriter *writer) const = 0;

    /// Whether it can be saved; if not, the user has been informed. Messages run the event loop, in
    /// which the page may be destroyed.
    virtual bool checkData() = 0;

    /// Marks the document as modified.
    virtual void modified() = 0;

    /// Copies what writeData() would write into `configuration`.
    virtual void collect(Configuration *configuration) const = 0;

protected:
    ~Page() = default;
};

} // namespace VLT
