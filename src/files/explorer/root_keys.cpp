#include "files/explorer/root_keys.h"

namespace files {

namespace {

struct RootWord {
    const char* word;
    std::int16_t type;
};

// In the order of the tests.
constexpr RootWord kWords[] = {{"computer", 1}, {"workspace", 0}, {"controlpanel", 2}};

} // namespace

bool isRootKey(const QString& key)
{
    return key.contains(QLatin1String("Root_"));
}

std::vector<std::int16_t> rootTypesOf(const QString& key)
{
    const QString lower = key.toLower();
    std::vector<std::int16_t> types;
    for (const RootWord& root : kWords) {
        if (lower.contains(QLatin1String(root.word))) {
            types.push_back(root.type);
        }
    }
    return types;
}

std::int16_t clickedRootType(const QString& key)
{
    if (key.contains(QLatin1String("MyComputer"))) {
        return 1;
    }
    return key.contains(QLatin1String("ControlPanel")) ? 2 : 0;
}

} // namespace files
