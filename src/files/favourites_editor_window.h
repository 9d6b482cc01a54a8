#pragma once

#include "files/text_list.h"

#include <QWidget>

class QListWidget;
class QPushButton;

// FavortiesModi: deletes and renames the entries of the favourites (mode "F") or of the editors
// (mode "T"). The dynamic property "listMode" names the mode; "F" where there is none.
class FavortiesModi : public QWidget {
    Q_OBJECT

public:
    explicit FavortiesModi(QWidget* parent);

private:
    [[nodiscard]] const files::TextList& list() const;
    void applyMode();
    void refill();
    void deleteSelected();
    void renameSelected();
    void refillMenus();

    bool event(QEvent* event) override;

    QWidget* m_title = nullptr;
    QListWidget* m_names = nullptr;
    QListWidget* m_paths = nullptr; // lstdata; runs along with the names
};
