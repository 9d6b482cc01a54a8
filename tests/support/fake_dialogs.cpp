#include "support/fake_dialogs.h"

namespace support {

template<typename Answer> Answer FakeDialogs::next(std::deque<Answer>& answers)
{
    if (whileOpen) {
        whileOpen();
    }
    Answer answer = Answer();
    if (!answers.empty()) {
        answer = std::move(answers.front());
        answers.pop_front();
    }
    return answer;
}

QStringList FakeDialogs::boxTexts() const
{
    QStringList texts;
    for (const Box& box : boxes) {
        texts.append(box.text);
    }
    return texts;
}

void FakeDialogs::showMessage(const QString& text, const QString& title, platform::BoxIcon icon)
{
    boxes.push_back({text, title, icon});
    if (whileOpen) {
        whileOpen();
    }
}

bool FakeDialogs::askYesNo(const QString& text, const QString& title,
                           const platform::Subject& subject)
{
    boxes.push_back({text, title, subject.icon});
    subjects.push_back(subject);
    return next(yesNoAnswers);
}

QStringList FakeDialogs::openFiles(const platform::FileRequest& request)
{
    fileRequests.push_back(request);
    return next(openAnswers);
}

std::optional<platform::SaveChoice> FakeDialogs::saveFile(const platform::FileRequest& request)
{
    fileRequests.push_back(request);
    return next(saveAnswers);
}

std::optional<base::Colour> FakeDialogs::chooseColour(base::Colour initial)
{
    colourRequests.push_back(initial);
    return next(colourAnswers);
}

std::optional<QString> FakeDialogs::askText(const QString& label, const QString& title,
                                            const QString& initial)
{
    textRequests.push_back({label, title, initial});
    return next(textAnswers);
}

std::optional<QString> FakeDialogs::askPassword(const QString& label, const QString& title)
{
    passwordRequests.push_back({label, title, QString()});
    return next(passwordAnswers);
}

std::optional<QFont> FakeDialogs::chooseFont(const QFont& initial)
{
    fontRequests.push_back(initial);
    return next(fontAnswers);
}

} // namespace support
