#pragma once

#include <QString>
#include <QStringView>
#include <utility>
#include <vector>

namespace platform {

// Order of texts by code point: below, equal to or above zero. Lists pass names whose case is
// folded.
int compareByCodePoint(QStringView left, QStringView right);

// A name of a list, with the text that it is sorted by.
struct FoldedName {
    explicit FoldedName(QString text)
        : folded(text.toCaseFolded())
        , name(std::move(text))
    {
    }

    QString folded;
    QString name;
};

// The names by code point without regard to case; those that differ in case only by that.
std::vector<QString> inOrder(std::vector<FoldedName> names);

} // namespace platform
