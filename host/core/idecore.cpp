#include "core/idecore.h"

#include "host/dev/devicecatalogue.h"

namespace Core {

DEV::DeviceDb *IdeCore::deviceDataBase()
{
    return DEV::DeviceCatalogue::get()->dataBase();
}

} // namespace Core
