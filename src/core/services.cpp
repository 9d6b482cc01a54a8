#include "core/services.h"

namespace core {

Services& services()
{
    static Services instance;
    return instance;
}

} // namespace core
