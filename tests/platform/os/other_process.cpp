// Another process for the tests: one to kill, to race against, or to run from a folder of its own.
//     other_process write-forever FILE      changes one key without end, first telling so
//     other_process write-keys FILE NAME N  writes the keys NAME0 to NAME(N-1)
//     other_process tell-paths              prints appPath()
//     other_process hold-instance           tells whether it got the instance lock, and waits

#include "platform/os/paths.h"
#include "platform/os/profile.h"
#include "platform/os/single_instance.h"

#include <QString>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {

void tell(const std::string& line)
{
    std::puts(line.c_str());
    std::fflush(stdout);
}

[[noreturn]] void writeForever(const QString& file)
{
    tell("writing");
    for (int i = 0;; ++i) {
        const int length = 1 + i * 37 % 200;
        platform::writeProfile(file, QStringLiteral("QUILLPOST"), QStringLiteral("Value"),
                               QString(length, QLatin1Char(i % 2 == 0 ? 'x' : 'y')));
    }
}

int writeKeys(const QString& file, const QString& name, int count)
{
    for (int i = 0; i < count; ++i) {
        const QString number = QString::number(i);
        if (!platform::writeProfile(file, QStringLiteral("QUILLPOST"), name + number, number)) {
            return 1;
        }
    }
    return 0;
}

int holdInstance()
{
    platform::initialisePaths();
    platform::SingleInstance instance;
    tell(instance.acquire() ? "first" : "second");
    ::sleep(60);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "write-forever" && argc == 3) {
        writeForever(QString::fromUtf8(argv[2]));
    }
    if (mode == "write-keys" && argc == 5) {
        return writeKeys(QString::fromUtf8(argv[2]), QString::fromUtf8(argv[3]),
                         std::atoi(argv[4]));
    }
    if (mode == "tell-paths") {
        platform::initialisePaths();
        tell(platform::toNative(platform::appPath()));
        return 0;
    }
    return mode == "hold-instance" ? holdInstance() : 2;
}
