#pragma once

#include <QWidget>

class QLineEdit;
class QRadioButton;

// Favorties: adds the picture shown to the favourites, under a name typed here or under its own
// path.
class Favorties : public QWidget {
    Q_OBJECT

public:
    explicit Favorties(QWidget* parent);

private:
    void add();

    QLineEdit* m_newName = nullptr;
    QLineEdit* m_newPath = nullptr;
    QRadioButton* m_underName = nullptr;
};
