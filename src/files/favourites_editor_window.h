#pragma once

#include "files/text_list.h"
#include "widgets/strip_window.h"

class QListWidget;

namespace files {

enum class EditedList { Favourites, Editors };

// Shows FavortiesModi modally for one of the lists.
void showListEditor(EditedList list);

} // namespace files

// Deletes and renames the entries of the favourites, or of the editors.
class FavortiesModi : public widgets::StripWindow {
    Q_OBJECT

public:
    FavortiesModi();

    void setList(files::EditedList list);

private:
    [[nodiscard]] const files::TextList& list() const;
    void refill();
    void deleteSelected();
    void renameSelected();
    void refillMenus();

    bool event(QEvent* event) override;

    files::EditedList m_list = files::EditedList::Favourites;
    QListWidget* m_names = nullptr;
    QListWidget* m_paths = nullptr; // lstdata; runs along with the names
};
