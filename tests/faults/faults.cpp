#include "faults.h"

#include <QFile>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/uio.h>
#include <unistd.h>

namespace {

std::string faultyFolder; // empty: nothing fails
int countdown = 0;
int faultCode = 0;
bool struck = false;

bool isInFolder(const char *path)
{
    return path && !faultyFolder.empty() &&
           std::string(path).compare(0, faultyFolder.size(), faultyFolder) == 0;
}

bool isInFolder(int descriptor)
{
    if (faultyFolder.empty())
        return false;
    char link[32];
    char target[4096];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const ssize_t size = readlink(link, target, sizeof target - 1);
    if (size < 0)
        return false;
    target[size] = 0;
    return isInFolder(target);
}

/// To be asked once by each operation that concerns the folder.
bool fails()
{
    if (--countdown != 0)
        return false;
    struck = true;
    errno = faultCode;
    return true;
}

template<class Function>
Function *original(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

int openFile(const char *name, const char *path, int flags, mode_t mode)
{
    if ((flags & O_ACCMODE) != O_RDONLY && isInFolder(path) && fails())
        return -1;
    return original<int(const char *, int, ...)>(name)(path, flags, mode);
}

mode_t modeOf(int flags, va_list arguments)
{
    return flags & (O_CREAT | O_TMPFILE) ? mode_t(va_arg(arguments, int)) : 0;
}

} // namespace

Fault::Fault(const QString &folder, int at, int code)
{
    faultyFolder = QFile::encodeName(folder).toStdString();
    countdown = at;
    faultCode = code;
    struck = false;
}

Fault::~Fault()
{
    faultyFolder.clear();
}

bool Fault::hasStruck()
{
    return struck;
}

// Seen by the libraries, which would call the system's own otherwise.
#pragma GCC visibility push(default)
extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openFile("open", path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openFile("open64", path, flags, mode);
}

ssize_t write(int descriptor, const void *bytes, size_t size)
{
    if (isInFolder(descriptor) && fails())
        return -1;
    return original<ssize_t(int, const void *, size_t)>("write")(descriptor, bytes, size);
}

int rename(const char *from, const char *to)
{
    if (isInFolder(to) && fails())
        return -1;
    return original<int(const char *, const char *)>("rename")(from, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags)
{
    if (isInFolder(to) && fails())
        return -1;
    return original<int(int, const char *, int, const char *, unsigned)>("renameat2")(
        fromFolder, from, toFolder, to, flags);
}

int link(const char *from, const char *to)
{
    if (isInFolder(to) && fails())
        return -1;
    return original<int(const char *, const char *)>("link")(from, to);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags)
{
    if (isInFolder(to) && fails())
        return -1;
    return original<int(int, const char *, int, const char *, int)>("linkat")(fromFolder, from,
                                                                              toFolder, to, flags);
}

} // extern "C"
#pragma GCC visibility pop
