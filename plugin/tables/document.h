#pragma once

#include <memory>

namespace NlsData {
class Netlist;
}

namespace VLT {

class VLTView;

/// The pages' and tables' interface to their document. They are built before the document is
/// complete, so they may store the pointer but must not call it in their constructors.
class Document
{
public:
    /// Marks the document as modified, by the user or by a rule, or as clean.
    virtual void setModified(bool modified) = 0;

    /// The current netlist. Do not keep the pointer: a synthesis run replaces the netlist.
    virtual NlsData::Netlist *getNetlist() const = 0;

    /// The current netlist, kept alive by the pointer. Hold one while the netlist's objects are in
    /// use across an event loop, because the document's netlist may be replaced in the meantime.
    virtual std::shared_ptr<NlsData::Netlist> holdNetlist() const = 0;

    /// Discards all changes and requests that the document be closed, which may destroy it and its
    /// pages: return at once.
    virtual void closeWithoutQuestion() = 0;

protected:
    ~Document() = default;
};

/// The document of `view`; null for null. Pages receive a view, whose class they do not know.
Document *documentOf(VLTView *view);

} // namespace VLT
