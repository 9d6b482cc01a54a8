#pragma once

#include "platform/desktop/dialogs.h"

#include <deque>
#include <functional>
#include <vector>

namespace support {

// Dialogs for tests: records what is shown and answers from a script. Where the script has ended, a
// question is answered with No and a dialog is cancelled. They are in place while they live.
class FakeDialogs : public platform::Dialogs {
public:
    struct Box {
        QString text;
        QString title;
        platform::BoxIcon icon = platform::BoxIcon::None; // that of the subject for a Yes/No box
        bool operator==(const Box&) const = default;
    };
    struct TextRequest {
        QString label;
        QString title;
        QString initial;
    };

    // Everything shown so far, in order.
    std::vector<Box> boxes;
    std::vector<platform::Subject> subjects; // one for each Yes/No box
    std::vector<platform::FileRequest> fileRequests;
    std::vector<base::Colour> colourRequests;
    std::vector<TextRequest> textRequests;
    std::vector<TextRequest> passwordRequests;
    std::vector<QFont> fontRequests;

    // Answers, used from the front.
    std::deque<bool> yesNoAnswers;
    std::deque<QStringList> openAnswers;
    std::deque<std::optional<platform::SaveChoice>> saveAnswers;
    std::deque<std::optional<base::Colour>> colourAnswers;
    std::deque<std::optional<QString>> textAnswers;
    std::deque<std::optional<QString>> passwordAnswers;
    std::deque<std::optional<QFont>> fontAnswers;

    // Called while a dialog of any kind "is open", for what may happen meanwhile.
    std::function<void()> whileOpen;

    // Texts of the boxes, for a short comparison.
    [[nodiscard]] QStringList boxTexts() const;

    void showMessage(const QString& text, const QString& title, platform::BoxIcon icon) override;
    bool askYesNo(const QString& text, const QString& title,
                  const platform::Subject& subject) override;
    QStringList openFiles(const platform::FileRequest& request) override;
    std::optional<platform::SaveChoice> saveFile(const platform::FileRequest& request) override;
    std::optional<base::Colour> chooseColour(base::Colour initial) override;
    std::optional<QString> askText(const QString& label, const QString& title,
                                   const QString& initial) override;
    std::optional<QString> askPassword(const QString& label, const QString& title) override;
    std::optional<QFont> chooseFont(const QFont& initial) override;

private:
    template<typename Answer> Answer next(std::deque<Answer>& answers);

    platform::ScopedDialogs m_inPlace{*this};
};

} // namespace support
