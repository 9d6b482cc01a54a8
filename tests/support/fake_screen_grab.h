#pragma once

#include "platform/desktop/screen_grab.h"

#include <QPointer>
#include <utility>
#include <vector>

namespace support {

// Every pixel differs from its neighbours by a colour that tells where it is.
inline QImage numberedScreen(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            picture.setPixel(x, y, qRgb(x & 0xFF, y & 0xFF, (x >> 8) | ((y >> 8) << 4)));
        }
    }
    return picture;
}

// A desktop whose screens a test draws. It is in place while it lives.
class FakeScreenGrab : public platform::ScreenGrab {
public:
    enum class Answers { AtOnce, WhenTold };

    FakeScreenGrab() { show(numberedScreen({800, 800})); }

    // One screen that is the picture.
    void show(const QImage& picture)
    {
        frozen = platform::FrozenDesktop{picture, {{picture.rect(), picture.rect()}}};
    }

    void take(QObject& owner, Done done) override
    {
        asked.push_back({&owner, std::move(done)});
        if (answers == Answers::AtOnce) {
            answer();
        }
    }

    // Answers everybody who has asked and is still there, again and again when called again.
    void answer()
    {
        for (const auto& [owner, done] : std::vector(asked)) {
            if (owner != nullptr) {
                done(frozen);
            }
        }
    }

    std::optional<platform::FrozenDesktop> frozen; // nothing: the desktop refuses
    Answers answers = Answers::AtOnce;

    struct Question {
        QPointer<QObject> owner;
        Done done;
    };
    std::vector<Question> asked;

private:
    platform::ScopedScreenGrab m_inPlace{*this};
};

} // namespace support
