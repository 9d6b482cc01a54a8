#include "files/display_pipeline.h"
#include "shell/commands.h"
#include "shell/main_window.h"
#include "viewer/picture_viewer.h"

namespace shell::commands {

void zoomIn(Form1& form, int /*index*/)
{
    form.viewer().ZoomIn();
}

void zoomOut(Form1& form, int /*index*/)
{
    form.viewer().ZoomOut();
}

void fullSize(Form1& form, int /*index*/)
{
    form.viewer().ZoomReal();
}

void toggleBestFit(Form1& form, int /*index*/)
{
    form.toggleBestFit();
}

void next(Form1& form, int /*index*/)
{
    form.nextpic();
}

void previous(Form1& form, int /*index*/)
{
    form.prevpic();
}

void nextThenDisplay(Form1& form, int /*index*/)
{
    form.stop_slideshow();
    form.nextpic();
    form.display_pic();
}

void previousThenDisplay(Form1& form, int /*index*/)
{
    form.stop_slideshow();
    form.prevpic();
    form.display_pic();
}

void slower(Form1& form, int /*index*/)
{
    form.pipeline().slower();
}

void faster(Form1& form, int /*index*/)
{
    form.pipeline().faster();
}

void togglePanView(Form1& form, int /*index*/)
{
    form.Smallfrm();
}

void toggleScrollBars(Form1& form, int /*index*/)
{
    form.Scrollshow();
}

void toggleDragging(Form1& form, int /*index*/)
{
    form.Dragpic();
}

void toggleZoomTool(Form1& form, int /*index*/)
{
    form.fastZoomshow();
}

void showFullScreen(Form1& form, int /*index*/)
{
    form.showFullScreenTopmost();
}

} // namespace shell::commands
