#include "platform/os/single_instance.h"

#include "platform/os/lock_file.h"
#include "platform/os/paths.h"

#include <cerrno>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

SingleInstance::~SingleInstance()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

bool SingleInstance::acquire()
{
    if (m_descriptor >= 0) {
        return true;
    }
    Descriptor file = openLockFile("instance", appPath());
    if (!file.isOpen()) {
        return true;
    }
    if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        return false;
    }
    m_descriptor = file.release();
    return true;
}

} // namespace platform
