#include "delivered_art.h"
#include "delivered_frames.h"
#include "delivered_samples.h"

#include <QGuiApplication>

#include <cstdlib>
#include <iostream>

// Turns the drawings of data/art into the pictures that stand beside the program.
int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: make_data <folder of drawings> <folder of the program>\n";
        return EXIT_FAILURE;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const std::filesystem::path home(argv[2]);
    const tools::Folders folders{argv[1], home / "Images", home / "Samples", home / "Frame"};
    const bool done = tools::deliverToolbar(folders) && tools::deliverExplorer(folders) &&
                      tools::deliverIcons(folders) && tools::deliverCursors(folders) &&
                      tools::deliverScenes(folders) && tools::deliverClip(folders) &&
                      tools::deliverSamples(folders) && tools::deliverFrames(folders);
    return done ? EXIT_SUCCESS : EXIT_FAILURE;
}
