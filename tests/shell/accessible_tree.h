#pragma once

#include <QAccessible>
#include <QString>
#include <functional>

class QWidget;

// What a screen reader meets in a window, part by part.
namespace accessible_tree {

struct Part {
    QString path; // of the parts from the window down, for the message of a test
    QString name;
    QAccessible::Role role;
    QWidget* widget = nullptr; // null for parts that are no widget, such as menu entries
    bool isFocusable = false;
    bool isSeparator = false;
};

// Calls the visitor for every part of the window's accessible tree, menus included, and for every
// widget of it that the tree leaves out.
void walk(QWidget& window, const std::function<void(const Part&)>& visit);

// The user operates the part, or reads its state.
[[nodiscard]] bool needsName(const Part& part);

// A name out of the source, such as one of a control array, and none for people.
[[nodiscard]] bool isInternalName(const QString& name);

} // namespace accessible_tree
