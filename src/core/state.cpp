#include "core/state.h"

namespace core {

State& state()
{
    static State instance;
    return instance;
}

} // namespace core
