#pragma once

#include <memory>

namespace NlsData {
class Netlist;
}

namespace VLT {

class VLTView;

/// What the pages and tables ask of the document that they belong to. They are built before the
/// document is complete, so they may keep it, but ask nothing of it in their constructors.
class Document
{
public:
    /// A change of the user's, or of a rule, that saving would store.
    virtual void setModified(bool modified) = 0;

    /// The current netlist; ask for it each time, since a synthesis run replaces it.
    virtual NlsData::Netlist *getNetlist() const = 0;

    /// The current netlist for as long as the caller keeps the pointer. Whoever runs an event loop
    /// while it works on the netlist's objects holds one: the document may get a new one meanwhile.
    virtual std::shared_ptr<NlsData::Netlist> holdNetlist() const = 0;

    /// Drops all changes and asks for the document to be closed, which may destroy it and its
    /// pages: nothing may follow.
    virtual void closeWithoutQuestion() = 0;

protected:
    ~Document() = default;
};

/// The document that `view` is; null for null. Pages are handed a view, which they do not know.
Document *documentOf(VLTView *view);

} // namespace VLT
