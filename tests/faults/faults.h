#pragma once

#include <QString>

/// Lets one operation of the system on the files of a folder fail: the n-th that opens one for
/// writing, writes, links or renames.
class Fault
{
public:
    /// The operation number `at`, counted from 1, fails with `code`, a value of errno.
    Fault(const QString &folder, int at, int code);

    /// Ends the fault.
    ~Fault();
    Fault(const Fault &) = delete;
    Fault &operator=(const Fault &) = delete;

    /// Whether there were that many operations.
    static bool hasStruck();
};
