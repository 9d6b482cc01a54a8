#pragma once

#include "platform/desktop/desktop.h"
#include "platform/desktop/dialogs.h"

#include <QStringList>
#include <functional>
#include <vector>

// Dialogs and a desktop that write down what they are asked and answer as a test has set them up.
// They are in place while they live.
namespace support {

class RecordedDialogs : public platform::Dialogs {
public:
    struct Message {
        QString text;
        QString title;
        platform::BoxIcon icon;
    };

    void showMessage(const QString& text, const QString& title, platform::BoxIcon icon) override
    {
        messages.push_back({text, title, icon});
        if (whileOpen) {
            whileOpen();
        }
    }
    bool askYesNo(const QString& text, const QString& /*title*/,
                  const platform::Subject& subject) override
    {
        questions.append(text);
        subjects.push_back(subject);
        return answer;
    }
    QStringList openFiles(const platform::FileRequest& /*request*/) override { return {}; }
    std::optional<platform::SaveChoice> saveFile(const platform::FileRequest& /*request*/) override
    {
        return std::nullopt;
    }
    std::optional<base::Colour> chooseColour(base::Colour /*initial*/) override
    {
        return std::nullopt;
    }
    std::optional<QString> askText(const QString& /*label*/, const QString& /*title*/,
                                   const QString& /*initial*/) override
    {
        return std::nullopt;
    }

    std::vector<Message> messages;
    QStringList questions;
    std::vector<platform::Subject> subjects; // one for each question
    bool answer = false;                     // of every question
    std::function<void()> whileOpen;         // what happens while a message stands

private:
    platform::ScopedDialogs m_inPlace{*this};
};

class RecordedDesktop : public platform::Desktop {
public:
    [[nodiscard]] int bitsPerPixel() const override { return 32; }
    bool maximise(QWidget& /*window*/) override { return true; }
    bool openDocument(const QString& pathOrUrl) override
    {
        opened.append(pathOrUrl);
        return true;
    }
    bool startProgram(const QString& path, const QStringList& /*arguments*/) override
    {
        started.append(path);
        return true;
    }
    void showProperties(const QString& path, QWidget* /*parent*/) override
    {
        properties.append(path);
    }
    bool moveToTrash(const QString& path) override
    {
        trashed.append(path);
        return trashWorks;
    }

    QStringList opened;
    QStringList started;
    QStringList properties;
    QStringList trashed;
    bool trashWorks = true;

private:
    platform::ScopedDesktop m_inPlace{*this};
};

} // namespace support
