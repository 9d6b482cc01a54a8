#include "platform/devices/mail_socket.h"

#include "platform/devices/qt_mail_socket.h"

#include <utility>

namespace platform {

namespace {

MailSockets* g_sockets = nullptr;

} // namespace

std::unique_ptr<MailSocket> makeMailSocket()
{
    return g_sockets != nullptr ? g_sockets->make() : std::make_unique<QtMailSocket>();
}

ScopedMailSockets::ScopedMailSockets(MailSockets& replacement)
    : m_previous(std::exchange(g_sockets, &replacement))
{
}

ScopedMailSockets::~ScopedMailSockets()
{
    g_sockets = m_previous;
}

} // namespace platform
