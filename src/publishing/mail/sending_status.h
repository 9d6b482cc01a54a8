#pragma once

#include <QString>

namespace mail {

// The status strip of the window that sends.
class SendingStatus {
public:
    virtual ~SendingStatus() = default;
    virtual void showStatus(const QString& text) = 0; // lblStatus
    virtual void showBusy(bool busy) = 0;             // imgstatus: Image1(1) or Image1(0)
};

} // namespace mail
