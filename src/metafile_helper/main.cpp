// Draws the metafile on standard input and answers with its pixels on standard output. A program of
// its own, so that a hostile file can take down no more than this.

#include "metafile_helper/answer_writer.h"
#include "metafile_helper/emf_drawing.h"
#include "metafile_helper/process_limits.h"
#include "metafile_helper/wmf_drawing.h"

#include "platform/pictures/metafile_answer.h"

#include <QGuiApplication>
#include <cstdlib>
#include <unistd.h>

namespace {

bool isEnhanced(const QByteArray& file)
{
    constexpr qsizetype kSignature = 40;
    return file.mid(kSignature, 4) == " EMF";
}

} // namespace

int main(int count, char** arguments)
{
    if (!metafile_helper::limitProcess()) {
        return EXIT_FAILURE;
    }
    const auto file = metafile_helper::readAll(STDIN_FILENO, platform::kLargestMetafile);
    if (!file) {
        return platform::kMetafileRefused;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    const QImage image =
        isEnhanced(*file) ? metafile_helper::drawEmf(*file) : metafile_helper::drawWmf(*file);
    const bool answered = !image.isNull() && metafile_helper::writeAnswer(STDOUT_FILENO, image);
    // Leaves without tidying up after the libraries, which is where damaged files hurt last.
    ::_exit(answered ? EXIT_SUCCESS : platform::kMetafileRefused);
}
