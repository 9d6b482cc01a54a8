#pragma once

#include "platform/desktop/dialogs.h"

// Dialogs that answer what they are told, and write down what they were asked.
class RecordedDialogs : public platform::Dialogs {
public:
    void showMessage(const QString& text, const QString& title, platform::BoxIcon) override
    {
        shown.append(title + "|" + text);
    }
    bool askYesNo(const QString&, const QString&, const platform::Subject&) override
    {
        return false;
    }
    QStringList openFiles(const platform::FileRequest&) override { return {}; }
    std::optional<platform::SaveChoice> saveFile(const platform::FileRequest&) override
    {
        return std::nullopt;
    }
    std::optional<base::Colour> chooseColour(base::Colour initial) override
    {
        offeredColour = initial;
        return colour;
    }
    std::optional<QString> askText(const QString&, const QString&, const QString&) override
    {
        return std::nullopt;
    }

    QStringList shown;
    base::Colour offeredColour = 0;
    std::optional<base::Colour> colour; // the answer; nothing cancels
};
