#pragma once

#include "platform/desktop/dialogs.h"

namespace platform {

// The dialogs of the desktop.
class QtDialogs : public Dialogs {
public:
    void showMessage(const QString& text, const QString& title, BoxIcon icon) override;
    bool askYesNo(const QString& text, const QString& title, const Subject& subject) override;
    QStringList openFiles(const FileRequest& request) override;
    std::optional<SaveChoice> saveFile(const FileRequest& request) override;
    std::optional<base::Colour> chooseColour(base::Colour initial) override;
    std::optional<QString> askText(const QString& label, const QString& title,
                                   const QString& initial) override;
    std::optional<QString> askPassword(const QString& label, const QString& title) override;
    std::optional<QFont> chooseFont(const QFont& initial) override;

private:
    QString m_lastFolder; // of the last file dialog that ended with a choice
};

} // namespace platform
