#pragma once

#include "check/activity/declarations.h"
#include "check/activity/filekind.h"
#include "check/activity/timescale.h"
#include "check/activity/vcdcodes.h"

#include <QString>

#include <memory>

class QIODevice;

namespace Check {

/// What SAIF says about a bit, in ticks of the file's timescale.
struct SaifCounts
{
    double low = 0;
    double high = 0;
    double unknown = 0; ///< neither low nor high
    quint64 toggles = 0;
    quint64 glitches = 0;
};

/// What an activity file declares, without its values.
struct ActivityFile
{
    QString path; ///< as given
    FileKind kind = FileKind::Other;
    QString otherKind; ///< what it is instead
    QString error;     ///< why it cannot be used, one sentence with the byte offset; else empty
    qint64 cutAt = -1; ///< where it ends too early; -1 when it is complete
    Timescale timescale;
    bool hasSpan = false; ///< the two are known
    double first = 0;     ///< time stamps, in ticks of the timescale
    double last = 0;
    qint64 otherVariables = 0; ///< real, event, string, parameter: no bits
    qint64 valuesAt = 0;       ///< VCD: offset of what follows the definitions
    Declarations declarations;
    VcdCodes codes;                 ///< VCD: of the signals
    std::vector<SaifCounts> counts; ///< SAIF: by signal, when they were asked for

    bool isUsable() const { return error.isEmpty(); }
};

/// Reads the definitions of a file, and of VCD the first and the last time stamp. Never null.
/// `counts`: keep the counts of SAIF.
std::shared_ptr<const ActivityFile> readActivityFile(const QString &path, bool counts = false);

/// The same from an open device that can be sought.
std::shared_ptr<const ActivityFile> readActivity(QIODevice *device, const QString &path,
                                                 bool counts = false);

} // namespace Check
