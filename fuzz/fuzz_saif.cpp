#include "useactivity.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    return useActivity(data, size, Check::FileKind::Saif);
}
