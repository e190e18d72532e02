#include "core/idecore.h"

#include "host/dev/devicedb_p.h"

namespace Core {

DEV::DeviceDb *IdeCore::deviceDataBase()
{
    return DEV::DeviceDbPrivate::get()->dataBase();
}

} // namespace Core
