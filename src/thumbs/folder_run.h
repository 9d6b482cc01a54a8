#pragma once

#include "thumbs/file_loader.h"
#include "thumbs/folder_step.h"

#include <QPointer>

class ThumbNailList;

namespace thumbs {

// One run over the folder of a ThumbNailList: every file is loaded and handed to a step, in the
// list's order, and events run once per file. Its own counters stay its own when another run nests
// in it; folder, files, pages and table are the list's, and it goes on with those of the other run.
class FolderRun {
public:
    FolderRun(ThumbNailList& list, FolderStep& step);

    // Comes back when all files are done, at a cancel, or when the folder was refused. The list may
    // be gone then.
    void run();

private:
    void holdHost();
    void giveHostBack();
    void showStrip(bool visible);
    void holdAgain();
    void walk();
    void workOn();
    [[nodiscard]] std::optional<FileInRun> fileNow() const;
    [[nodiscard]] bool takeFile();
    [[nodiscard]] bool load(const FileInRun& file);
    void loadItself(const QString& path);
    void make(const FileInRun& file);
    void showProgress();
    void finish();
    void tellTheEnd();

    ThumbNailList& m_list;
    QPointer<ThumbNailList> m_alive;
    FolderStep& m_step;
    FileLoader m_loader;
    int m_index = 0;
    int m_count = 0;
};

} // namespace thumbs
