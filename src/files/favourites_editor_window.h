#pragma once

#include "files/text_list.h"
#include "widgets/strip_window.h"

class QListWidget;

// FavortiesModi: deletes and renames the entries of the favourites (mode "F") or of the editors
// (mode "T"). The dynamic property "listMode" names the mode; "F" where there is none.
class FavortiesModi : public widgets::StripWindow {
    Q_OBJECT

public:
    FavortiesModi();

private:
    [[nodiscard]] const files::TextList& list() const;
    void applyMode();
    void refill();
    void deleteSelected();
    void renameSelected();
    void refillMenus();

    bool event(QEvent* event) override;

    QListWidget* m_names = nullptr;
    QListWidget* m_paths = nullptr; // lstdata; runs along with the names
};
