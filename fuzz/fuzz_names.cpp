#include "check/names/namememory.h"
#include "check/names/nameplan.h"

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

/// Reads any bytes as the memory of a configuration's names and as a plan for them. A memory that
/// is accepted must come back when it is written and read again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    QString error;
    Check::NamePlan plan;
    require(parsePlan(bytes, &plan, &error) || !error.isEmpty());
    error.clear();
    Check::NameMemory memory;
    if (!memory.parse(bytes, &error)) {
        require(!error.isEmpty());
        return 0;
    }
    const QByteArray json = memory.toJson();
    Check::NameMemory again;
    require(again.parse(json, &error));
    require(again.toJson() == json);
    return 0;
}
