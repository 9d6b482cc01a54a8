#include "formats/hooks.h"

#include <utility>

namespace formats {

namespace {

Hooks& current()
{
    static Hooks instance;
    return instance;
}

} // namespace

void setHooks(Hooks hooks)
{
    current() = std::move(hooks);
}

const Hooks& hooks()
{
    return current();
}

} // namespace formats
