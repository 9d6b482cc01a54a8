#pragma once

class Form1;

// The handlers behind the command table. Each runs inside the common frame of a command: hourglass
// before, focus to the viewer and default pointer after, and the picture test where the row asks
// for it.
namespace shell::commands {

// File
void showFlashPlayer(Form1& form, int index);
void showMediaPlayer(Form1& form, int index);
void showWebBrowser(Form1& form, int index);
void createAlbum(Form1& form, int index);
void setUpAlbum(Form1& form, int index);
void open(Form1& form, int index);
void save(Form1& form, int index);
void saveAs(Form1& form, int index);
void sendMail(Form1& form, int index);
void acquire(Form1& form, int index);
void print(Form1& form, int index);
void showContactSheets(Form1& form, int index);
void captureScreen(Form1& form, int index);
void showProperties(Form1& form, int index);
void addEditor(Form1& form, int index);
void configureEditors(Form1& form, int index);
void startSeparateEditor(Form1& form, int index);
void exitProgram(Form1& form, int index);

// Edit
void undo(Form1& form, int index);
void cutPicture(Form1& form, int index);
void copyPicture(Form1& form, int index);
void paste(Form1& form, int index);
void deleteFile(Form1& form, int index);
void copyTo(Form1& form, int index);
void copyToFromRightMenu(Form1& form, int index);
void moveTo(Form1& form, int index);
void rename(Form1& form, int index);
void search(Form1& form, int index);
void composeFrame(Form1& form, int index);
void showPreferences(Form1& form, int index);

// View
void zoomIn(Form1& form, int index);
void zoomOut(Form1& form, int index);
void fullSize(Form1& form, int index);
void toggleBestFit(Form1& form, int index);
void next(Form1& form, int index);
void previous(Form1& form, int index);
void nextThenDisplay(Form1& form, int index);
void previousThenDisplay(Form1& form, int index);
void slower(Form1& form, int index);
void faster(Form1& form, int index);
void togglePanView(Form1& form, int index);
void toggleScrollBars(Form1& form, int index);
void toggleDragging(Form1& form, int index);
void toggleZoomTool(Form1& form, int index);
void showFullScreen(Form1& form, int index);

// Image and filters
void editImage(Form1& form, int index);   // optImage
void applyFilter(Form1& form, int index); // optFilter
void applyColour(Form1& form, int index); // optColor
void flipFromRightMenu(Form1& form, int index);

// Tools
void startSlideShow(Form1& form, int index);
void stopSlideShow(Form1& form, int index);
void toggleSlideShow(Form1& form, int index);
void toggleBrowseMode(Form1& form, int index);
void toggleMainToolbar(Form1& form, int index);
void toggleRecentBar(Form1& form, int index);
void setThumbnailSize(Form1& form, int index);
void setThumbnailColours(Form1& form, int index);
void setWallpaper(Form1& form, int index);
void captureQuietly(Form1& form, int index);

// Favourites and help
void addFavourite(Form1& form, int index);
void modifyFavourites(Form1& form, int index);
void showHelp(Form1& form, int index);
void openUpdatePage(Form1& form, int index);
void openSupportPage(Form1& form, int index);
void startLiveUpdate(Form1& form, int index);
void showAbout(Form1& form, int index);

} // namespace shell::commands
