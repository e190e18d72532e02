#pragma once

#include "hostexport.h"

#include <QList>

class QWidget;

namespace NlsData {

class Net;

/// The environment's net picker.
class HOST_EXPORT FindNetDialog
{
public:
    /// Lets the user choose among `nets`, modally on `parent`. Returns the chosen nets in the
    /// order shown, which is that of `nets` with numbers in brackets in theirs ([2] before [10]);
    /// an empty list if canceled. Runs the event loop.
    static QList<Net *> getList(const QList<Net *> &nets, QWidget *parent);
};

} // namespace NlsData
