// A process for the tests to kill, or to race against: writes key after key of a profile.
//     profile_writer FILE forever     changes one key without end, first telling so
//     profile_writer FILE PREFIX N    writes the keys PREFIX0 to PREFIX(N-1)

#include "platform/profile.h"

#include <QString>
#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    if (argc < 3) {
        return 2;
    }
    const QString file = QString::fromUtf8(argv[1]);
    const QString section = QStringLiteral("QUILLPOST");
    if (std::string(argv[2]) == "forever") {
        std::puts("writing");
        std::fflush(stdout);
        for (int i = 0;; ++i) {
            const int length = 1 + i * 37 % 200;
            platform::writeProfile(file, section, QStringLiteral("Value"),
                                   QString(length, QLatin1Char(i % 2 == 0 ? 'x' : 'y')));
        }
    }
    for (int i = 0; i < std::atoi(argc > 3 ? argv[3] : "0"); ++i) {
        const QString key = QString::fromUtf8(argv[2]) + QString::number(i);
        if (!platform::writeProfile(file, section, key, QString::number(i))) {
            return 1;
        }
    }
    return 0;
}
